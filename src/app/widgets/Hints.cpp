#include "app/widgets/Hints.h"

#include <QCoreApplication>
#include <QEvent>
#include <QStatusTipEvent>
#include <QWidget>

#include <algorithm>
#include <iterator>

namespace korvane {

namespace {

struct Hint {
    const char* window;
    const char* control;
    const char* text;
};

// Without the 2D views: their text about the pointer includes what the mouse does.
constexpr Hint hints[] = {
    {"MDIChild", "Splitter2Handle",
     "Drag, or press Left or Right, to change the width of the pages"},
    {"MDIChild", "TreeView1",
     "The frames and materials of the model; press Enter to edit, right-click for more"},
    {"MDIChild", "EditButton", "Edit the options of the frame, or the materials"},
    {"MDIChild", "RenameButton", "Rename the frame"},
    {"MDIChild", "DeleteButton", "Delete the frame with all below it, or the material"},
    {"MDIChild", "AddButton", "Add a frame below the selected one, or a material"},
    {"MDIChild", "qt_tabwidget_tabbar", "Choose between the structure and the tools"},
    {"MDIChild", "zoomButton",
     "In the 2D views, the left button doubles the scale, the right halves it"},
    {"MDIChild", "moveFrameButton",
     "In the 2D views, drag with the left button to move the selected frame"},
    {"MDIChild", "moveViewButton", "In the 2D views, drag with the left button to pan the views"},
    {"MDIChild", "rotateFrameButton",
     "In the 2D views, drag with the left button to turn the selected frame"},
    {"MDIChild", "MoveObjCoordsButton",
     "In the 2D views, drag with the left button to move the point that the 3D view looks at"},
    {"MDIChild", "FrameVisibleBox",
     "Show or hide the selected frame; hiding it also clears Mesh Visible"},
    {"MDIChild", "MeshVisibleBox", "Show or hide the mesh of the selected frame"},
    {"MDIChild", "TwoDVisibleBox", "Show or hide the three 2D views"},
    {"MDIChild", "ThreeDWin",
     "Drag with the left button to turn the model; drag with the right button, or turn the wheel, "
     "to zoom"},

    {"Material", "ComboBox1",
     "The material to edit; choosing one also assigns it to the selected face"},
    {"Material", "ambient", "Choose the color of the material in the shade"},
    {"Material", "diffuse", "Choose the color of the material in the light"},
    {"Material", "specular", "Choose the color of the highlight"},
    {"Material", "opacitybar", "The opacity of the material, in percent"},
    {"Material", "Edit1", "How sharp the highlight is, from 0 for none; press Enter to finish"},
    {"Material", "CheckListBox1", "The materials that the mesh uses"},
    {"Material", "TreeView1",
     "Select a face, or one of its vertices, to move its texture coordinates"},
    {"Material", "OnlyMaterialBox",
     "Show only the faces of this material, in the list and in the texture view"},
    {"Material", "textureCheckBox", "Switch the texture of the material on or off"},
    {"Material", "Image1",
     "Drag with the left button to move the selected face or vertex; the wheel zooms, the middle "
     "button scrolls"},
    {"Material", "HorizontalBar", "Scroll the texture"},
    {"Material", "VerticalBar", "Scroll the texture"},
    {"Material", "ZoomOutButton", "Show the texture half as large"},
    {"Material", "ZoomInButton", "Show the texture twice as large"},
    {"Material", "RedrawButton", "Redraw the texture view"},
    {"Material", "Panel1", "Choose the color of the selected face's outline"},
    {"Material", "Panel2", "Choose the color of the other faces' outlines"},
    {"Material", "Button2", "Close the editor and keep the changes"},

    {"OKBottomDlg", "Edit1", "The name of a picture, a folder, or a mask such as *.tga"},
    {"OKBottomDlg", "FileListBox1", "The pictures of the folder"},
    {"OKBottomDlg", "FilterComboBox1", "Which pictures are listed"},
    {"OKBottomDlg", "DirectoryListBox1", "The folder whose pictures are listed"},
    {"OKBottomDlg", "DriveComboBox1", "The drive whose folders are listed"},
    {"OKBottomDlg", "OKBtn", "Use this picture as the texture"},
    {"OKBottomDlg", "CancelBtn", "Leave the texture as it is"},

    {"OKBottomDlg1", "NameEdit", "The name of the frame, in lower case"},
    {"OKBottomDlg1", "ButtonBox", "OK renames the frame, Cancel leaves its name"},

    {"frameF", "BasePoseBox", "Whether the frame has a base pose; it cannot be changed here"},
    {"frameF", "MeshBox", "Draw and save the mesh of the frame"},
    {"frameF", "BackwardsBox", "Show the faces of the mesh from both sides"},
    {"frameF", "EmissiveBox", "The game shows the frame as glowing"},
    {"frameF", "MaterialBox", "Draw and save the mesh with its materials"},
    {"frameF", "NormalsBox", "Draw and save the mesh with its normals"},
    {"frameF", "TexCoordsBox", "Draw and save the mesh with its texture coordinates"},
    {"frameF", "VertexColorsBox", "Whether the mesh has vertex colors; it cannot be changed here"},
    {"frameF", "FlameBox", "The game animates the frame"},
    {"frameF", "GFlagBox", "Sets the G flag in the name of the frame"},
    {"frameF", "AnimationBox", "Save the animation of the frame"},
    {"frameF", "ButtonBox",
     "OK makes the changes undoable; Cancel keeps them without an undo step"},

    {"ColorOptions", "ThreeDWinColorEdit", "Choose the background of the 3D view"},
    {"ColorOptions", "WireRenderSelectedEdit", "Choose the color of the selected frame's lines"},
    {"ColorOptions", "WireRenderSelectedChildEdit",
     "Choose the color of the lines of frames below the selected one"},
    {"ColorOptions", "WireRenderUnselectedEdit", "Choose the color of all other frames' lines"},
    {"ColorOptions", "TwoDWinColorEdit", "Choose the background of the 2D views"},
    {"ColorOptions", "WorldAxesEdit",
     "Choose the color of the lines through the origin of the world"},
    {"ColorOptions", "ObjAxesEdit", "Choose the color of the mark at the selected frame's origin"},
    {"ColorOptions", "ColorOptionsButtons", "OK applies the colors to all windows"},

    {"RecoveryBox", "CopyList",
     "The models with unsaved changes; tick those to open or throw away"},
    {"RecoveryBox", "OpenButton", "Open the ticked models"},
    {"RecoveryBox", "ThrowAwayButton", "Remove the copies of the ticked models for good"},
    {"RecoveryBox", "LaterButton", "Ask again at the next start"},

    {"AboutBox", "Details", "The system that the program runs on"},
    {"AboutBox", "CopyButton", "Copy all of this to the clipboard for a bug report"},
    {"AboutBox", "OKButton", "Close this box"},
};

struct Section {
    const char* part; ///< a window, a dialog or a part of one
    const char* heading;
};

constexpr Section sections[] = {
    {"MainForm", "opening-and-saving"},
    {"OpenDialog1", "opening-and-saving"},
    {"SaveDialog1", "opening-and-saving"},
    {"CloseQuestion", "opening-and-saving"},
    {"RecoveryBox", "if-the-program-or-the-machine-stops"},
    {"MDIChild", "the-window"},
    {"ColorOptions", "the-window"},
    {"AboutBox", "the-window"},
    {"StructureSheet", "the-structure"},
    {"OKBottomDlg1", "the-structure"},
    {"frameF", "the-structure"},
    {"ToolsSheet", "the-2d-views"},
    {"Panel5", "the-2d-views"},
    {"Panel6", "the-2d-views"},
    {"Panel7", "the-2d-views"},
    {"ThreeDWin", "the-3d-view"},
    {"Material", "materials"},
    {"OKBottomDlg", "materials"},
};

/// Passes the hints of a dialog to its parent, and clears the last one when the dialog hides.
class HintRelay : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* dialog = qobject_cast<QWidget*>(watched);
        QWidget* below = dialog != nullptr ? dialog->parentWidget() : nullptr;
        if (below != nullptr && event->type() == QEvent::StatusTip) {
            return QCoreApplication::sendEvent(below, event);
        }
        if (below != nullptr && event->type() == QEvent::Hide) {
            QStatusTipEvent none{QString()};
            QCoreApplication::sendEvent(below, &none);
        }
        return false;
    }
};

} // namespace

void setHints(QWidget& window) {
    for (const Hint& hint : hints) {
        if (window.objectName() == QLatin1String(hint.window)) {
            if (auto* control = window.findChild<QWidget*>(QLatin1String(hint.control))) {
                control->setStatusTip(QString::fromUtf8(hint.text));
                // screen readers get the same text
                control->setAccessibleDescription(control->statusTip());
            }
        }
    }
    if (window.isWindow()) {
        window.installEventFilter(new HintRelay(&window));
    }
}

QString guideSection(const QWidget* control) {
    for (; control != nullptr; control = control->parentWidget()) {
        const auto* found = std::find_if(
            std::begin(sections), std::end(sections), [control](const Section& section) {
                return control->objectName() == QLatin1String(section.part);
            });
        if (found != std::end(sections)) {
            return QString::fromLatin1(found->heading);
        }
    }
    return {};
}

} // namespace korvane
