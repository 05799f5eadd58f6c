#pragma once

#include "edit/materials/FacePart.h"
#include "edit/materials/TexCoordView.h"
#include "render/drags/DragInput.h"

#include <cstdint>
#include <vector>

namespace korvane {

struct MeshRecord;

/// Texture coordinates that a drag has moved, by their numbers in the mesh. The lists have the same
/// length.
struct MovedTexCoords {
    std::vector<std::int32_t> numbers;
    std::vector<Vec2> before;
    std::vector<Vec2> after;
};

/// Dragging in the texture view: the left button moves the texture coordinates of a face or one of
/// its vertices, within 0 to 1. Uses one mesh and one view from begin() to the end.
class TexCoordDrag {
  public:
    /// A button went down. Returns false unless it is the left one, the texture has more than one
    /// pixel and there is something to move.
    bool begin(const DragInput& input, const TexCoordView& view, const MeshRecord& mesh,
               FacePart moved);
    /// The mouse moved: writes the new coordinates to the mesh. Returns false if no drag runs.
    bool update(const DragInput& input, const TexCoordView& view, MeshRecord& mesh) const;
    /// What the drag has moved so far; empty if none runs.
    [[nodiscard]] MovedTexCoords moved(const MeshRecord& mesh) const;
    /// Ends the drag and leaves the mesh as it is.
    void end() { active_ = false; }
    /// Restores the coordinates. Returns false if no drag runs.
    bool cancel(MeshRecord& mesh);

    [[nodiscard]] bool active() const { return active_; }

  private:
    bool active_ = false;
    DragInput start_;
    std::vector<std::int32_t> numbers_;
    std::vector<Vec2> before_;
};

} // namespace korvane
