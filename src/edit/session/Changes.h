#pragma once

#include "render/drags/PlaneDrag.h"

namespace korvane {

/// The parts of the forms that an operation has put out of date.
struct Changes {
    bool tree = false;      ///< the structure tree has other nodes
    bool geometry = false;  ///< what all views show: frames, meshes, the selection's mark
    bool materials = false; ///< the look of faces in the 3D view
    bool camera = false;    ///< the camera of the 3D view
    bool planes = false;    ///< the part of the model that the 2D views show
    bool selection = false; ///< another node is selected
    bool title = false;
    bool status = false;

    /// Whether the picture of the 3D view is out of date, or those of the 2D views.
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

/// Converts the result of the mouse or a key in a 2D view.
inline Changes changesOf(const StaleViews& stale) {
    return {.geometry = stale.space, .planes = stale.planes && !stale.space};
}

} // namespace korvane
