#include "render/scene/NothingShown.h"

#include "model/document/ModelDocument.h"
#include "model/records/FrameWalk.h"
#include "render/scene/DrawList.h"
#include "render/scene/DrawMaterials.h"

namespace korvane {

namespace {

bool anyFaceCovers(const MeshRecord& mesh, const std::vector<MaterialRecord>& materials,
                   const ViewState& state) {
    for (std::size_t face = 0; face < mesh.Faces.size(); ++face) {
        const MaterialRecord* material = materialOfFace(mesh, face, materials);
        if (material == nullptr || shownOpacity(*material, state) > 0.0F) {
            return true;
        }
    }
    return false;
}

} // namespace

QString whyNothingShows(const ModelDocument& document, const ViewState& state) {
    bool anyMesh = false;
    bool anyFace = false;
    bool anyVisible = false;
    for (FrameWalk walk(document.Root); !walk.done(); walk.next()) {
        const FrameRecord& frame = walk.frame();
        anyMesh = anyMesh || frame.HasMesh;
        if (!frame.HasMesh || frame.Mesh.Faces.empty()) {
            continue;
        }
        anyFace = true;
        if (isShown(frame)) {
            anyVisible = true;
            if (anyFaceCovers(frame.Mesh, document.Materials, state)) {
                return {};
            }
        }
    }
    return anyVisible ? QStringLiteral("Every mesh shown has opacity 0.")
           : anyFace  ? QStringLiteral("Every mesh is hidden.")
           : anyMesh  ? QStringLiteral("The model has no faces.")
                      : QStringLiteral("The model has no mesh.");
}

} // namespace korvane
