#include "support/MaterialTest.h"

#include <QAction>
#include <QColorDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTreeView>

namespace korvane::test {

MaterialTest::MaterialTest() {
    editor.setTextureDialog(textureDialog);
    QObject::connect(&editor, &TMaterial::edited, &editor, [this] { ++edits; });
    document.FileName = path("model.xsi");
}

void MaterialTest::edit(std::optional<FramePath> where, std::int32_t slot,
                        const std::function<void()>& steps) {
    answer([this, steps](QWidget& shown) {
        ASSERT_EQ(&shown, &editor);
        settle();
        steps();
        if (editor.isVisible()) {
            click("Button2");
        }
    });
    settle(); // notices that an earlier one has closed
    MaterialEditing materials(document, history, {std::move(where), slot});
    editor.edit(materials);
    ended = materials.end();
    EXPECT_TRUE(allAnswered());
}

void MaterialTest::color(const char* swatch, std::optional<QColor> chosen) {
    answer([chosen](QWidget& shown) {
        auto* dialog = qobject_cast<QColorDialog*>(&shown);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->objectName(), QStringLiteral("ColorDialog1"));
        dialog->setCurrentColor(chosen.value_or(Qt::black));
        static_cast<QDialog*>(dialog)->done(chosen ? QDialog::Accepted : QDialog::Rejected);
    });
    if (auto* action = editor.findChild<QAction*>(QString::fromLatin1(swatch))) {
        action->trigger();
    } else {
        click(swatch);
    }
}

void MaterialTest::texture(const QString& file, QDialog::DialogCode result) {
    settle(); // notices that an earlier one has closed
    answer([this, file, result](QWidget& shown) {
        ASSERT_EQ(&shown, &textureDialog);
        EXPECT_FALSE(textureDialog.isAccepted() && textureDialog.loadedImage());
        child<QLineEdit>(shown, "Edit1").clear();
        QTest::keyClicks(&child<QLineEdit>(shown, "Edit1"), file);
        child<QPushButton>(shown, result == QDialog::Accepted ? "OKBtn" : "CancelBtn").click();
        if (textureDialog.loadedImage() == blankTextureImage()) {
            child<QPushButton>(shown, "OKBtn").click(); // regardless of the preview
        }
    });
    control<QAction>("mopen").trigger();
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

QString MaterialTest::textureTexts() {
    return control<QGroupBox>("texname").title() + text("size") + text("TextureMessage");
}

std::string MaterialTest::usedMaterials() {
    auto& list = control<QListWidget>("CheckListBox1");
    std::string used;
    for (int row = 0; row < list.count(); ++row) {
        const std::string mark = list.item(row)->checkState() == Qt::Checked ? "x" : ".";
        used += (list.item(row)->flags() & Qt::ItemIsEnabled) != 0 ? mark : "(" + mark + ")";
    }
    return used;
}

} // namespace korvane::test
