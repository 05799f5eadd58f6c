#include "edit/materials/TextureViewText.h"

#include "model/records/MaterialRecord.h"

#include <gtest/gtest.h>

namespace korvane::test {
namespace {

TEST(TextureViewTextTest, SaysWhyThereIsNoPicture) {
    const auto find = [](const std::string& name) {
        return name == "THERE.PIC" ? std::optional(QStringLiteral("there.pic")) : std::nullopt;
    };
    const auto picture = std::make_shared<TextureImage>();
    picture->width = 2;
    picture->pixels.resize(2);
    const auto dot = std::make_shared<TextureImage>();
    dot->pixels = {Rgba8{1, 2, 3, 255}};
    const auto blank = std::make_shared<TextureImage>(); // as it comes from the clipboard
    struct Case {
        bool on;
        const char* file;
        std::shared_ptr<const TextureImage> image;
        const char* text;
    };
    const Case cases[] = {
        {true, "a.tga", picture, ""},
        {true, "a.tga", dot, ""},
        {true, "", picture, ""},
        {true, "skins\\missing.tga", blankTextureImage(), "missing.tga was not found"},
        {true, "missing.tga", blank, "missing.tga was not found"},
        {true, "THERE.PIC", blankTextureImage(), "THERE.PIC cannot be shown"},
        {true, "", blankTextureImage(), "No texture is chosen."},
        {false, "", blankTextureImage(), "The texture is off."},
        {false, "c:/a/hull.bmp", picture, "hull.bmp is switched off and will not be saved"},
        {false, "hull.bmp", blank, "hull.bmp is switched off and will not be saved"}};
    for (const auto& [on, file, image, text] : cases) {
        MaterialRecord material;
        material.HasTexture = on;
        material.TextureFile = file;
        material.TextureImage = image;
        EXPECT_EQ(textureViewText(material, find, withoutFolder(file)).toStdString(), text) << file;
    }
}

} // namespace
} // namespace korvane::test
