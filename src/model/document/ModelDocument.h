#pragma once

#include "model/document/NodeData.h"
#include "model/document/RenderCursor.h"
#include "model/records/FrameRecord.h"
#include "model/records/MaterialRecord.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace korvane {

/// What the mouse does in the 2D views.
enum class ViewTool : std::int32_t {
    MoveFrame = 1,
    Zoom = 2,
    MoveView = 3,
    RotateFrame = 4,
    MoveObjCoords = 5,
};

/// One open model: the frame tree, the material table that all frames share, and where the user
/// stands in it. Owned by its document window and living as long as that.
struct ModelDocument {
    FrameRecord Root;
    std::vector<MaterialRecord> Materials;
    /// The full path of the file, or "Untitled" with or without a number.
    QString FileName;
    bool NeverSaved = true; ///< no file name of the user's choice yet: Save asks for one
    bool Modified = true;   ///< the model differs from its file
    /// Counts the changes to what files hold. What was worked out before a dialog showed is of no
    /// use once this has moved on without it.
    std::uint64_t Revision = 0;
    /// Counts what running drags do to the model, also what is taken back. Together with Revision
    /// it tells all states of the model apart.
    std::uint64_t LiveChanges = 0;
    RenderCursor Cursor;    ///< `CursorDepth` and `CursorPath`
    NodeData Selected;      ///< the selection in the structure tree
    NodeData SelectionCopy; ///< kept equal to Selected
    // What the document's views share.
    Vec3 CameraCenter; ///< the point in world space that the 3D view looks at and turns about
    float CameraDistance = 10.0F; ///< of the eye from that point, scaled as the 3D view is
    float PlaneScale = 16.0F;     ///< the zoom scale of the 2D views: pixels a unit
    Vec3 PanVector;               ///< how far the 2D views show the world moved
    ViewTool Tool = ViewTool::Zoom;

    // The traversal of the document's own cursor, kept for callers outside the program, which
    // itself walks trees with FrameWalk; see RenderCursor.
    void ResetRenderList() { Cursor.ResetRenderList(); }
    bool IncRenderList() { return Cursor.IncRenderList(Root); }
    FrameRecord* GetFramePtr() { return Cursor.GetFramePtr(Root); }
    FrameRecord* GetParentPtr() { return Cursor.GetParentPtr(Root); }
    [[nodiscard]] Matrix4 GetFrameMatrix() const { return Cursor.GetFrameMatrix(Root); }

    /// Kept with the traversal. Moves the cursor on to the frame (it stands on the frame's
    /// parent, or on the frame before it in pre-order) and computes the frame's data that files do
    /// not hold.
    void Nonfiledata(FrameRecord& frame);

    /// Computes the data that follows from a frame's mesh: face normals and bounding box.
    static void computeMeshData(FrameRecord& frame);

    /// Computes the data that files do not hold for every frame, whatever order they came in.
    void computeDerivedData();

    /// The frame that the selection is or belongs to, or null. Valid until the next structural
    /// edit.
    [[nodiscard]] FrameRecord* selectedFrame();
    [[nodiscard]] const FrameRecord* selectedFrame() const;
    /// Makes the frame at the path the selection, with its node in the structure tree, and moves
    /// the cursor to it. The path must lead to a frame.
    void selectFrame(const FramePath& path);

    /// Marks the frame at the path as selected, the frames below it as its descendants and all
    /// others as neither. A path that leads nowhere leaves all unmarked.
    void markSelection(const FramePath& path);
};

} // namespace korvane
