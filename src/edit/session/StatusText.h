#pragma once

#include "formats/files/OtherSave.h"
#include "formats/textures/TextureLoader.h"
#include "model/document/ModelDocument.h"
#include "render/drags/PlaneDrag.h"

#include <QString>

#include <optional>
#include <string_view>

namespace korvane {

/// How much the model holds: "13 meshes, 1277 faces".
QString countsText(const ModelDocument& document);

/// What the status bar says of a model just opened: how much it holds, and the textures that were
/// not found or not shown.
QString openedText(const ModelDocument& document, const UnseenTextures& unseen);

/// What undo and redo have done, given the name of the change: "Undone: delete frame".
QString undoneText(std::string_view change);
QString redoneText(std::string_view change);

/// What became of saving a document under its name.
enum class SaveResult {
    Written,
    NotWritten, ///< by design: the name is not that of a dotXSI file
    Failed,
};

/// What the status bar says after a save: what was written, with the names of frames that a reading
/// would not give back, or that nothing was.
/// `other` is what became of another program's save there.
QString savedText(const ModelDocument& document, SaveResult result, const OtherSave& other = {});

/// What the status bar says of a model from a recovery copy.
QString recoveredText(const ModelDocument& document, const UnseenTextures& unseen);

/// A name on one line, without its middle where it is long: files can hold names of any length.
QString shortName(const QString& name);

/// The coordinates that a 2D view shows of a place in world space, to the pixel: "x 1.25  y -3.50".
QString placeText(const PlaneMapping& mapping, const Vec3& place);

/// What the mouse does in the 2D views.
QString toolHint(ViewTool tool);

/// How far a frame has got by the keys in a 2D view.
QString movedText(const PlaneMapping& mapping, const DragProgress& progress);

/// What the pointer is at in a 2D view, in coordinates of the model, and what the drag there has
/// done, if one runs, else what the mouse does there.
QString pointerText(const PlaneMapping& mapping, const DragInput& input,
                    const std::optional<DragProgress>& progress, ViewTool tool);

} // namespace korvane
