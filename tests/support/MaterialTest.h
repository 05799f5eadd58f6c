#pragma once

#include "edit/forms/TMaterial.h"
#include "edit/forms/TOKBottomDlg.h"
#include "support/GuiTest.h"

#include <QColorDialog>
#include <QTest>
#include <QTreeView>

#include <functional>
#include <optional>

namespace korvane::test {

/// A test of the material editor on a model of its own: frame 1 of the root has a mesh of three
/// faces, the last one without texture coordinates, with slots for the first two of three
/// materials. Material 1 has a texture of 300 x 200 pixels.
class MaterialTest : public GuiTest {
  protected:
    MaterialTest();

    /// Shows the editor, lets the steps use it and closes it by "OK" unless they did.
    void edit(const std::function<void()>& steps, std::int32_t slot = 0) {
        edit(framePath(), slot, steps);
    }
    /// `frame` is none for the table.
    void edit(std::optional<FramePath> frame, std::int32_t slot,
              const std::function<void()>& steps);

    [[nodiscard]] FrameRecord& frame() { return document.Root.Children[0]; }
    [[nodiscard]] MeshRecord& mesh() { return frame().Mesh; }
    [[nodiscard]] static FramePath framePath() { return FramePath().child(1); }
    template <class T>
    [[nodiscard]] T& control(const char* name) {
        return child<T>(editor, name);
    }
    void click(const char* button) { QTest::mouseClick(&control<QWidget>(button), Qt::LeftButton); }
    /// Chooses the colour in the colour dialog that comes up next, or cancels it.
    void answerColor(std::optional<QColor> color);
    /// The message about what is no power.
    void answerConversionError();
    /// Chooses the file in the texture dialog that comes up next.
    void answerTexture(const QString& file, QDialog::DialogCode result);
    /// Chooses an item of the combo box as a user does.
    void chooseSlot(int slot);
    void check(int material, bool used);
    /// Selects a face (vertex 0) or one of its vertices in the tree.
    void select(FacePart part);
    /// Presses, moves and releases the left button in the texture view.
    void press(QPoint at) { QTest::mousePress(&view(), Qt::LeftButton, Qt::NoModifier, at); }
    void move(QPoint at) { moveHolding(view(), at); }
    void release(QPoint at) { QTest::mouseRelease(&view(), Qt::LeftButton, Qt::NoModifier, at); }
    [[nodiscard]] QWidget& view() { return control<QWidget>("Image1"); }

    ModelDocument document;
    EditHistory history;
    TMaterial editor{nullptr};
    TOKBottomDlg textureDialog{nullptr};
    Changes ended; ///< what the last edit() left to do
    int edits = 0; ///< how often the editor told that the model changed
};

} // namespace korvane::test
