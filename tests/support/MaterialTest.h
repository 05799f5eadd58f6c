#pragma once

#include "edit/forms/TMaterial.h"
#include "edit/forms/TOKBottomDlg.h"
#include "render/forms/TImage.h"
#include "support/GuiTest.h"
#include "support/MaterialModel.h"

#include <QComboBox>
#include <QLabel>
#include <QTest>

#include <functional>
#include <optional>

namespace korvane::test {

/// A test of the material editor on a model of its own.
class MaterialTest : public GuiTest, protected MaterialModel {
  protected:
    MaterialTest();

    /// Shows the editor, runs the steps, and closes it with "OK" unless they did.
    void edit(const std::function<void()>& steps, std::int32_t slot = 0) {
        edit(framePath(), slot, steps);
    }
    /// Without a frame, edits the document's table.
    void edit(std::optional<FramePath> frame, std::int32_t slot,
              const std::function<void()>& steps);

    template <class T>
    [[nodiscard]] T& control(const char* name) {
        return child<T>(editor, name);
    }
    void click(const char* button) { QTest::mouseClick(&control<QWidget>(button), Qt::LeftButton); }
    /// Opens the colour dialog by the control, and chooses the colour or cancels.
    void color(const char* swatch, std::optional<QColor> chosen);
    /// Chooses the file in the texture dialog.
    void texture(const QString& file, QDialog::DialogCode result = QDialog::Accepted);
    /// Chooses an item of the combo box as a user does.
    void chooseSlot(int slot);
    void check(int material, bool used);
    /// Selects a face (vertex 0) or one of its vertices in the tree.
    void select(FacePart part);
    // the left button of the mouse in the texture view
    void press(QPoint at) { QTest::mousePress(&view(), Qt::LeftButton, Qt::NoModifier, at); }
    void move(QPoint at) { moveHolding(view(), at); }
    void release(QPoint at) { QTest::mouseRelease(&view(), Qt::LeftButton, Qt::NoModifier, at); }
    [[nodiscard]] QWidget& view() { return control<QWidget>("Image1"); }
    [[nodiscard]] QImage picture() { return control<TImage>("Image1").picture().copy(); }
    [[nodiscard]] QString text(const char* label) { return control<QLabel>(label).text(); }
    /// Returns the texture's name and size, and why it does not show.
    [[nodiscard]] QString textureTexts();
    [[nodiscard]] QString slotText() { return control<QComboBox>("ComboBox1").currentText(); }
    /// Returns an "x" for each material that the mesh uses and a point for the others, in brackets
    /// if the user cannot change that.
    [[nodiscard]] std::string usedMaterials();

    TMaterial editor{nullptr};
    TOKBottomDlg textureDialog{nullptr};
    Changes ended; ///< the changes returned by the last edit()
    int edits = 0; ///< how often the editor reported a change
};

} // namespace korvane::test
