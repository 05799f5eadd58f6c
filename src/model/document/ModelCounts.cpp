#include "model/document/ModelCounts.h"

#include "model/records/FrameWalk.h"

namespace korvane {

ModelCounts countModel(const FrameRecord& root) {
    ModelCounts counts;
    for (FrameWalk walk(root); !walk.done(); walk.next()) {
        if (walk.frame().HasMesh) {
            ++counts.meshes;
            counts.vertices += walk.frame().Mesh.Vertices.size();
            counts.faces += walk.frame().Mesh.Faces.size();
        }
    }
    return counts;
}

std::string counted(std::size_t count, const char* singular, const char* plural) {
    return std::to_string(count) + ' ' + (count == 1 ? singular : plural);
}

std::string summary(const ModelCounts& counts) {
    return counted(counts.meshes, "mesh", "meshes") + ", " + counted(counts.faces, "face", "faces");
}

} // namespace korvane
