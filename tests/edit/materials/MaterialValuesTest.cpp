#include "edit/materials/MaterialValues.h"

#include "edit/materials/FaceTreeModel.h"
#include "formats/textures/TexturePicture.h"
#include "model/records/PolygonList.h"
#include "support/AllocationWatch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace korvane {
namespace {

TEST(MaterialValues, EveryByteSurvivesTheModel) {
    for (int value = 0; value <= 255; ++value) {
        const auto byte = static_cast<std::uint8_t>(value);
        const ColorRGB color = modelColor({byte, 0, 255, 3});
        EXPECT_EQ(color.red, static_cast<float>(value * (1.0L / 255.0L)));
        EXPECT_EQ(color.green, 0.0F);
        EXPECT_EQ(color.blue, 1.0F);
        EXPECT_EQ(shownColor(color), (Rgba8{byte, 0, 255, 255}));
    }
    EXPECT_EQ(shownColor({0.5F, 0.999F, 0.0039F}), (Rgba8{127, 254, 0, 255})) << "truncated";
    EXPECT_EQ(shownColor({-1.0F, 1e30F, std::nanf("")}), (Rgba8{0, 255, 0, 255}));
}

TEST(MaterialValues, OpacityIsTruncated) {
    EXPECT_EQ(opacityAt(40), 0.4F);
    EXPECT_EQ(opacityAt(100), 1.0F);
    EXPECT_EQ(opacityPosition(0.4F), 40);
    EXPECT_EQ(opacityPosition(0.999F), 99);
    EXPECT_EQ(opacityPosition(7.0F), 100);
    EXPECT_EQ(opacityPosition(-7.0F), 0);
    EXPECT_EQ(opacityPosition(std::nanf("")), 0);
    std::vector<std::int32_t> lost;
    for (std::int32_t position = 0; position <= lastOpacityPosition; ++position) {
        if (opacityPosition(opacityAt(position)) != position) {
            lost.push_back(position);
        }
    }
    EXPECT_EQ(lost, (std::vector<std::int32_t>{53, 59}));
}

TEST(MaterialValues, PowersSurviveAsText) {
    EXPECT_EQ(powerText(200.0F), "200");
    EXPECT_EQ(powerText(0.1F), "0.1");
    for (const float power : {0.0F, 12.345678F, 1e-30F, 3.4e38F, 1.0F / 3.0F}) {
        EXPECT_EQ(powerOf(powerText(power)), power);
    }
    EXPECT_EQ(powerOf(" 7.5 "), 7.5F);
    EXPECT_EQ(powerOf("1e2"), 100.0F);
    EXPECT_EQ(powerOf("+5"), 5.0F);
    EXPECT_EQ(powerOf("1e-60"), 0.0F);
    EXPECT_EQ(powerOf("3.4028234663852886e38"), std::numeric_limits<float>::max());
    for (const char* none :
         {"", " ", "-1", "abc", "5x", "inf", "nan", "1e99", "+-5", "++5", "1,5", "0x10"}) {
        EXPECT_EQ(powerOf(none), std::nullopt) << none;
    }
}

TEST(FaceTreeModel, MakesRowsOfFacesAndVerticesOnDemand) {
    PolygonList faces;
    faces.push_back(std::vector<std::uint32_t>{4, 0, 4294967295U});
    faces.push_back(std::vector<std::uint32_t>{});
    for (std::uint32_t i = 2; i < 100'000; ++i) {
        faces.push_back(std::vector<std::uint32_t>{i, i + 1, i + 2});
    }
    int asked = 0;
    const test::AllocationWatch watch;
    FaceTreeModel model;
    EXPECT_EQ(model.rowCount({}), 0);
    model.setFaces([&] {
        ++asked;
        return &faces;
    });
    const auto text = [&model](int row, const QModelIndex& parent = {}) {
        return model.data(model.index(row, 0, parent), Qt::DisplayRole).toString().toStdString();
    };
    const QModelIndex face = model.index(0, 0, {});
    const QModelIndex vertex = model.index(2, 0, face);
    EXPECT_EQ(text(0), "face 1");
    EXPECT_EQ(text(0, face), "vertice 5");
    EXPECT_EQ(text(2, face), "vertice 4294967296");
    EXPECT_EQ(text(2, model.index(99'999, 0, {})), "vertice 100002");
    EXPECT_LT(asked, 20) << "rows are made on demand";
    EXPECT_LT(watch.largest(), 1000U);
    EXPECT_EQ(model.rowCount({}), 100'000);
    EXPECT_EQ(model.rowCount(face), 3);
    EXPECT_EQ(model.rowCount(model.index(1, 0, {})), 0);
    EXPECT_EQ(model.rowCount(vertex), 0);
    EXPECT_EQ(vertex.parent(), face);
    EXPECT_FALSE(face.parent().isValid());
    EXPECT_FALSE(model.index(3, 0, face).isValid());
    EXPECT_EQ(model.partOf(face), (FacePart{0, 0}));
    EXPECT_EQ(model.partOf(vertex), (FacePart{0, 3}));
    EXPECT_EQ(model.partOf({}), std::nullopt);
    model.setFaces([&] { return &faces; }, std::vector<std::size_t>{0, 7, 500'000});
    const QModelIndex second = model.indexOf({7, 2});
    EXPECT_EQ(model.partOf(second), (FacePart{7, 2}));
    EXPECT_EQ(second.parent().row(), 1);
    EXPECT_EQ(text(1, second.parent()), "vertice 9");
    EXPECT_EQ(model.rowCount({}), 3);
    EXPECT_EQ(model.rowCount(model.index(2, 0, {})), 0) << "no such face";
    for (const FacePart& hidden : {FacePart{1, 0}, {99'999, 1}, {7, 4}}) {
        EXPECT_FALSE(model.indexOf(hidden).isValid()) << hidden.face;
    }
}

TEST(TexturePicture, KeepsTheColoursOfTransparentPixels) {
    TextureImage texture;
    texture.width = 2;
    texture.pixels = {{10, 20, 30, 0}, {40, 50, 60, 128}};
    const QImage picture = texturePicture(texture);
    ASSERT_EQ(picture.size(), QSize(2, 1));
    EXPECT_EQ(picture.pixel(0, 0), qRgb(10, 20, 30));
    EXPECT_EQ(picture.pixel(1, 0), qRgb(40, 50, 60));
}

} // namespace
} // namespace korvane
