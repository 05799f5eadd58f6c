#pragma once

#include "edit/materials/FacePart.h"
#include "edit/materials/TexCoordView.h"
#include "render/drags/DragInput.h"

#include <cstdint>
#include <vector>

namespace korvane {

struct MeshRecord;

/// Texture coordinates that a drag has moved, by their numbers in the mesh. The lists are of one
/// length.
struct MovedTexCoords {
    std::vector<std::int32_t> numbers;
    std::vector<Vec2> before;
    std::vector<Vec2> after;
};

/// The mouse in the texture view: the left button moves the texture coordinates of a face or of one
/// of its vertices, within 0 to 1. It works on one mesh and one view from begin() to the end.
class TexCoordDrag {
  public:
    /// A button went down. False if it is not the left one, the texture is a single pixel or there
    /// is nothing to move.
    bool begin(const DragInput& input, const TexCoordView& view, const MeshRecord& mesh,
               FacePart moved);
    /// The mouse moved: the mesh holds the new coordinates. False when no drag runs.
    bool update(const DragInput& input, const TexCoordView& view, MeshRecord& mesh) const;
    /// What the drag has moved so far; nothing when none runs.
    [[nodiscard]] MovedTexCoords moved(const MeshRecord& mesh) const;
    /// The drag is over; the mesh stays as it is.
    void end() { active_ = false; }
    /// Puts everything back where it was. False when no drag runs.
    bool cancel(MeshRecord& mesh);

    [[nodiscard]] bool active() const { return active_; }

  private:
    bool active_ = false;
    DragInput start_;
    std::vector<std::int32_t> numbers_;
    std::vector<Vec2> before_;
};

} // namespace korvane
