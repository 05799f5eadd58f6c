#include "support/MaterialTest.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>

namespace korvane::test {

MaterialTest::MaterialTest() {
    editor.setTextureDialog(textureDialog);
    QObject::connect(&editor, &TMaterial::edited, &editor, [this] { ++edits; });
    document.FileName = path("model.xsi");
    document.Materials.resize(3);
    TextureImage image;
    image.width = 300;
    image.height = 200;
    image.pixels.assign(300 * 200, Rgba8{200, 100, 50, 255});
    document.Materials[0].TextureImage = std::make_shared<const TextureImage>(image);
    document.Materials[0].TextureFile = "skins\\body.tga";
    document.Materials[0].HasTexture = true;
    document.Root.Children.resize(1);
    frame().HasMesh = mesh().HasMaterials = mesh().HasTexCoords = true;
    mesh().Vertices.resize(4);
    for (const auto& face : {std::vector<std::uint32_t>{0, 1, 2}, {0, 2, 3}, {3, 2, 1}}) {
        mesh().Faces.push_back(face);
    }
    mesh().TexCoordFaces.push_back(std::vector<std::uint32_t>{0, 1, 2});
    mesh().TexCoordFaces.push_back(std::vector<std::uint32_t>{0, 2, 3});
    mesh().TexCoords = {{0.1F, 0.9F}, {0.5F, 0.9F}, {0.5F, 0.5F}, {0.1F, 0.5F}};
    mesh().MaterialSlotList = {0, 1};
    mesh().FaceSlotIndex = {0, 1, 1};
    document.computeDerivedData();
    document.Modified = false;
}

void MaterialTest::edit(std::optional<FramePath> where, std::int32_t slot,
                        const std::function<void()>& steps) {
    answer([this, steps](QWidget& shown) {
        ASSERT_EQ(&shown, &editor);
        settle();
        try {
            steps();
        } catch (const std::exception& failure) {
            ADD_FAILURE() << failure.what();
        }
        if (editor.isVisible()) {
            click("Button2");
        }
    });
    settle(); // one shown before is seen to be gone
    MaterialEditing materials(document, history, {std::move(where), slot});
    editor.edit(materials);
    ended = materials.end();
    EXPECT_TRUE(allAnswered());
}

void MaterialTest::answerColor(std::optional<QColor> color) {
    answer([color](QWidget& shown) {
        auto* dialog = qobject_cast<QColorDialog*>(&shown);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->objectName(), QStringLiteral("ColorDialog1"));
        if (color) {
            dialog->setCurrentColor(*color);
            static_cast<QDialog*>(dialog)->accept();
        } else {
            dialog->reject();
        }
    });
}

void MaterialTest::answerConversionError() {
    answerBox(QStringLiteral("ConversionError"), QStringLiteral("Please type a number >= 0"),
              QStringLiteral("Conversion Error"), QMessageBox::Ok, QMessageBox::Ok);
}

void MaterialTest::answerTexture(const QString& file, QDialog::DialogCode result) {
    settle(); // one shown before is seen to be gone
    answer([this, file, result](QWidget& shown) {
        ASSERT_EQ(&shown, &textureDialog);
        EXPECT_FALSE(textureDialog.isAccepted() && textureDialog.loadedImage());
        child<QLineEdit>(shown, "Edit1").clear();
        QTest::keyClicks(&child<QLineEdit>(shown, "Edit1"), file);
        child<QPushButton>(shown, result == QDialog::Accepted ? "OKBtn" : "CancelBtn").click();
        if (textureDialog.loadedImage() == blankTextureImage()) {
            child<QPushButton>(shown, "OKBtn").click(); // whatever the preview says
        }
        if (shown.isVisible()) {
            ADD_FAILURE() << "the dialog is still open";
            textureDialog.reject();
        }
    });
}

void MaterialTest::chooseSlot(int slot) {
    auto& box = control<QComboBox>("ComboBox1");
    box.setCurrentIndex(slot);
    Q_EMIT box.activated(slot);
}

void MaterialTest::check(int material, bool used) {
    control<QListWidget>("CheckListBox1")
        .item(material)
        ->setCheckState(used ? Qt::Checked : Qt::Unchecked);
}

void MaterialTest::select(FacePart part) {
    auto& tree = control<QTreeView>("TreeView1");
    const QModelIndex face = tree.model()->index(static_cast<int>(part.face), 0);
    tree.setCurrentIndex(
        part.vertex == 0 ? face : tree.model()->index(static_cast<int>(part.vertex) - 1, 0, face));
}

} // namespace korvane::test
