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

/// One open model: the frame tree, the material table that all frames share, and the selection and
/// view settings. Each document window has one.
struct ModelDocument {
    FrameRecord Root;
    std::vector<MaterialRecord> Materials;
    /// The full path of the file, or "Untitled" with or without a number.
    QString FileName;
    bool NeverSaved = true; ///< the user has not chosen a file name yet: Save asks for one
    bool Modified = true;   ///< the model differs from its file
    /// Counts the changes to what files hold. What was computed before a dialog opened is stale if
    /// something else has changed this meanwhile.
    std::uint64_t Revision = 0;
    /// Counts the changes that running drags make, including those taken back. Together with
    /// Revision it identifies each state of the model.
    std::uint64_t LiveChanges = 0;
    RenderCursor Cursor;    ///< `CursorDepth` and `CursorPath`
    NodeData Selected;      ///< the selection in the structure tree
    NodeData SelectionCopy; ///< kept equal to Selected
    // Shared by the document's views.
    Vec3 CameraCenter; ///< the point in world space that the 3D view looks at and turns about
    float CameraDistance = 10.0F; ///< of the eye from that point, in scaled units of the 3D view
    float PlaneScale = 16.0F;     ///< the zoom scale of the 2D views: pixels a unit
    Vec3 PanVector;               ///< the shift of the world in the 2D views
    ViewTool Tool = ViewTool::Zoom;

    // The traversal of the document's own cursor, kept for callers outside the program, which
    // itself walks trees with FrameWalk; see RenderCursor.
    void ResetRenderList() { Cursor.ResetRenderList(); }
    bool IncRenderList() { return Cursor.IncRenderList(Root); }
    FrameRecord* GetFramePtr() { return Cursor.GetFramePtr(Root); }
    FrameRecord* GetParentPtr() { return Cursor.GetParentPtr(Root); }
    [[nodiscard]] Matrix4 GetFrameMatrix() const { return Cursor.GetFrameMatrix(Root); }

    /// Kept with the traversal. Advances the cursor to the frame, from its parent or the frame
    /// before it in pre-order, and computes the frame's data that files do not hold.
    void Nonfiledata(FrameRecord& frame);

    /// Computes what derives from a frame's mesh: face normals and bounding box.
    static void computeMeshData(FrameRecord& frame);

    /// Computes the data that files do not hold, for all frames in any order.
    void computeDerivedData();

    /// The frame that is selected or owns the selected node, or null. Valid until the next
    /// structural edit.
    [[nodiscard]] FrameRecord* selectedFrame();
    [[nodiscard]] const FrameRecord* selectedFrame() const;
    /// Selects the frame at the path and its node in the structure tree, and moves the cursor to
    /// it. The path must lead to a frame.
    void selectFrame(const FramePath& path);

    /// Marks the frame at the path as selected, its descendants as such and all others as neither.
    /// A path that leads nowhere unmarks all.
    void markSelection(const FramePath& path);
};

} // namespace korvane
