#pragma once

#include "render/drags/PlaneDrag.h"

namespace korvane {

/// What of the forms an operation has put out of date.
struct Changes {
    bool tree = false;      ///< the structure tree has other nodes
    bool geometry = false;  ///< what all views show: frames, meshes, the mark of the selection
    bool materials = false; ///< how the 3D view shows faces
    bool camera = false;    ///< from where the 3D view shows them
    bool planes = false;    ///< what part of the model the 2D views show
    bool selection = false; ///< the selected node is another one
    bool title = false;
    bool status = false;

    /// Whether the picture of the 3D view is out of date, and whether those of the 2D views are.
    [[nodiscard]] bool space() const { return geometry || materials || camera; }
    [[nodiscard]] bool plane() const { return geometry || planes; }

    Changes& operator|=(const Changes& other) {
        tree = tree || other.tree;
        geometry = geometry || other.geometry;
        materials = materials || other.materials;
        camera = camera || other.camera;
        planes = planes || other.planes;
        selection = selection || other.selection;
        title = title || other.title;
        status = status || other.status;
        return *this;
    }
    friend Changes operator|(Changes one, const Changes& other) { return one |= other; }
    bool operator==(const Changes&) const = default;
};

/// The same of what the mouse or a key has done in a 2D view.
inline Changes changesOf(const StaleViews& stale) {
    return {.geometry = stale.space, .planes = stale.planes && !stale.space};
}

} // namespace korvane
