#pragma once

#include "formats/files/OtherSave.h"
#include "formats/textures/TextureLoader.h"
#include "model/document/ModelDocument.h"
#include "render/drags/PlaneDrag.h"

#include <QString>

#include <optional>
#include <string_view>

namespace korvane {

/// The size of the model: "13 meshes, 1277 faces".
QString countsText(const ModelDocument& document);

/// The message after opening a model: its size, and the textures that were not found or not shown.
QString openedText(const ModelDocument& document, const UnseenTextures& unseen);

/// The message after an undo or redo, given the name of the change: "Undone: delete frame".
QString undoneText(std::string_view change);
QString redoneText(std::string_view change);

/// The result of saving a document.
enum class SaveResult {
    Written,
    NotWritten, ///< by design: the name is not that of a dotXSI file
    Failed,
};

/// The message after a save: what was written, with the frame names that would not survive reading,
/// or that nothing was. `other` is another program's save that was found there.
QString savedText(const ModelDocument& document, SaveResult result, const OtherSave& other = {});

/// The message after opening a recovery copy.
QString recoveredText(const ModelDocument& document, const UnseenTextures& unseen);

/// A name on one line; a long one loses its middle, as files may hold names of any length.
QString shortName(const QString& name);

/// The coordinates that a 2D view shows of a place in world space, to the pixel: "x 1.25  y -3.50".
QString placeText(const PlaneMapping& mapping, const Vec3& place);

/// A hint on what the mouse does in the 2D views.
QString toolHint(ViewTool tool);

/// How far the keys have moved or turned a frame in a 2D view.
QString movedText(const PlaneMapping& mapping, const DragProgress& progress);

/// The pointer's coordinates in a 2D view, then the progress of a running drag, or else a hint on
/// what the mouse does.
QString pointerText(const PlaneMapping& mapping, const DragInput& input,
                    const std::optional<DragProgress>& progress, ViewTool tool);

} // namespace korvane
