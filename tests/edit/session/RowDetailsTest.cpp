#include "edit/session/RowDetails.h"

#include "edit/session/FoundTextures.h"
#include "support/MaterialModel.h"
#include "support/TestFiles.h"

#include <QFile>

namespace korvane::test {
namespace {

class RowDetailsTest : public TestFiles, protected MaterialModel {};

TEST_F(RowDetailsTest, DescribeTheRow) {
    document.FileName = path("model.xsi");
    mesh().FaceSlotIndex = {0};           // the other faces use the last slot
    mesh().MaterialSlotList = {0, 1, 50}; // which leads to no material
    mesh().Normals.resize(7);
    material().FaceColor = {1.0F, 0.5F, 0.0F, 0.29F};
    MaterialRecord& missing = document.Materials[1];
    missing.HasTexture = true;
    missing.TextureFile = "gone %1.tga";
    const FramePath frame = framePath();
    const std::string picture = path("body.tga").toStdString();
    write("body.tga", "bytes");
    const std::string first =
        "Diffuse color #ff7f00\nOpacity 29 %\nTexture body.tga, 300 x 200, from " + picture;
    const struct {
        NodeKind kind;
        std::int32_t item;
        std::optional<FramePath> frame;
        std::string details;
        std::uint32_t sample;
    } rows[] = {
        {NodeKind::Frame, 0, FramePath(), "A frame without a mesh\nChild frames: 1", 0},
        {NodeKind::Frame, 0, frame, "A frame with a mesh of 3 faces and 4 vertices", 0},
        {NodeKind::Mesh, 0, frame, "A mesh of 3 faces and 4 vertices", 0},
        {NodeKind::MeshMaterialList, 0, frame, "The materials of the mesh: 3", 0},
        {NodeKind::MaterialSlot, 0, frame, "A material of the mesh, on 1 face\n" + first,
         0xffff7f00U},
        {NodeKind::MaterialSlot, 2, frame,
         "A material of the mesh, on 2 faces\nThe model has no such material", 0},
        {NodeKind::MaterialSlot, 3, frame,
         "A material of the mesh, on 0 faces\nThe model has no such material", 0},
        {NodeKind::MeshNormals, 0, frame, "The normals of the mesh: 7", 0},
        {NodeKind::Mesh, 0, frame.child(9), "", 0},
        {NodeKind::MaterialTable, 0, std::nullopt, "All materials of the model: 3", 0},
        {NodeKind::TableMaterial, 0, std::nullopt, "A material of the model\n" + first,
         0xffff7f00U},
        {NodeKind::TableMaterial, 1, std::nullopt,
         "A material of the model\nDiffuse color #bfbfbf\nOpacity 100 %\ngone %1.tga was not found",
         0xffbfbfbfU},
        {NodeKind::TableMaterial, 2, std::nullopt,
         "A material of the model\nDiffuse color #bfbfbf\nOpacity 100 %\nThe texture is off.",
         0xffbfbfbfU},
        {NodeKind::TableMaterial, 3, std::nullopt,
         "A material of the model\nThe model has no such material", 0},
        {NodeKind::None, 0, std::nullopt, "", 0},
    };
    FoundTextures found;
    const auto find = [&](const std::string& name) { return found.find(document, name); };
    for (const auto& row : rows) {
        const NodeData node = {.Frame = row.frame, .NodeKind = row.kind, .ItemIndex = row.item};
        EXPECT_EQ(rowDetails(document, node, find).toStdString(), row.details);
        EXPECT_EQ(rowSample(document, node).value_or(0), row.sample) << row.details;
    }
    ASSERT_TRUE(QFile::remove(path("body.tga")));
    const NodeData bodyRow = {.NodeKind = NodeKind::TableMaterial};
    EXPECT_EQ(rowDetails(document, bodyRow, find).toStdString(),
              "A material of the model\n" + first)
        << "the files are looked at once";
    ++document.Revision;
    EXPECT_TRUE(
        rowDetails(document, bodyRow, find).endsWith(QStringLiteral("whose file was not found")));
}

} // namespace
} // namespace korvane::test
