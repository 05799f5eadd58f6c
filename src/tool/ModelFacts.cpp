#include "tool/ModelFacts.h"

#include "model/records/FrameWalk.h"

#include <map>

namespace korvane::tool {

ModelFacts::ModelFacts(ModelInput& model) : counts(countModel(model.document.Root)) {
    std::vector<Matrix4> worlds; // from the root down to the frame
    std::vector<std::size_t> trail;
    for (FrameWalk walk(std::as_const(model.document.Root)); !walk.done(); walk.next()) {
        const FrameRecord& frame = walk.frame();
        worlds.resize(walk.depth());
        trail.resize(walk.depth());
        worlds.push_back(worlds.empty() ? frame.Matrix : MatrixMatrix(frame.Matrix, worlds.back()));
        FrameFacts& facts = frames.emplace_back();
        facts.frame = &frame;
        facts.parent = trail.empty() ? std::nullopt : std::optional(trail.back());
        trail.push_back(frames.size() - 1);
        if (frame.HasMesh) {
            for (const Vec3& vertex : frame.Mesh.Vertices) {
                facts.bounds.add(vertex);
                bounds.add(VectorMatrix(vertex, worlds.back()));
            }
        }
    }
    std::map<std::string, std::optional<TextureFacts>> found;
    for (const MaterialRecord& material : model.document.Materials) {
        const std::string& name = material.TextureFile;
        if (material.HasTexture && !name.empty() && !found.contains(name)) {
            found[name] = model.texture(name);
        }
        textures.push_back(material.HasTexture ? found[name] : std::nullopt);
    }
}

} // namespace korvane::tool
