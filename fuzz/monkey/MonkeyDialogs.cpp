// What the monkey does to dialogs and to what is behind them.

#include "Journal.h"
#include "Monkey.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QMouseEvent>

namespace korvane::monkey {

namespace {

QWidget& innermost(const QList<QWidget*>& dialogs) {
    return *dialogs.last();
}

/// Returns the states of a dialog's check boxes.
std::vector<bool> checks(const QWidget& dialog) {
    std::vector<bool> all;
    for (const QCheckBox* box : dialog.findChildren<QCheckBox*>()) {
        all.push_back(box->isChecked());
    }
    return all;
}

} // namespace

void Monkey::answer(QWidget& dialog) {
    constexpr int patience = 60;
    note(QStringLiteral("  dialog ") + dialog.objectName());
    expect(dialog.objectName() != QStringLiteral("MemoryFailure"), "an exception got through");
    waitForActive(dialog);
    const TMDIChild* window = active();
    const std::vector<bool> before = checks(dialog);
    use(dialog);
    if (dialog.isVisible() && dice_.chance(35)) {
        queueBehind();
    }
    for (int tries = 0; dialog.isVisible(); ++tries) {
        expect(tries < patience, "a dialog does not close");
        end(dialog);
        settle();
    }
    const auto* asked = qobject_cast<QDialog*>(&dialog);
    if (dialog.objectName() == QStringLiteral("frameF") && asked->result() != QDialog::Accepted &&
        checks(dialog) != before) {
        ledger_.flagsStay(window);
    }
}

void Monkey::use(QWidget& dialog) {
    static const std::vector<Choice> material = {{3, "swatch", &Monkey::swatch},
                                                 {2, "material menu", &Monkey::materialMenu},
                                                 {4, "opacity", &Monkey::opacity},
                                                 {4, "power", &Monkey::power},
                                                 {7, "slot", &Monkey::slot},
                                                 {5, "check material", &Monkey::checkMaterial},
                                                 {8, "face", &Monkey::face},
                                                 {8, "drag texture", &Monkey::dragTexture},
                                                 {3, "texture", &Monkey::textureButton},
                                                 {2, "anything", &Monkey::useAnything},
                                                 {1, "queue", &Monkey::queueOne}};
    static const std::vector<Choice> rename = {{6, "name", &Monkey::typeName},
                                               {1, "anything", &Monkey::useAnything},
                                               {1, "queue", &Monkey::queueOne}};
    static const std::vector<Choice> texture = {{6, "choose texture", &Monkey::chooseTexture},
                                                {1, "queue", &Monkey::queueOne}};
    static const std::vector<Choice> other = {{6, "anything", &Monkey::useAnything},
                                              {1, "queue", &Monkey::queueOne}};
    const QString name = dialog.objectName();
    const bool answered = qobject_cast<QMessageBox*>(&dialog) != nullptr ||
                          qobject_cast<QFileDialog*>(&dialog) != nullptr ||
                          qobject_cast<QColorDialog*>(&dialog) != nullptr;
    for (int i = answered ? 0 : dice_.below(name == QStringLiteral("Material") ? 14 : 5);
         i > 0 && dialog.isVisible(); --i) {
        choose(name == QStringLiteral("Material")       ? material
               : name == QStringLiteral("OKBottomDlg1") ? rename
               : name == QStringLiteral("OKBottomDlg")  ? texture
                                                        : other,
               "    ");
        settle();
        while (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
    }
}

void Monkey::useAnything() {
    const QWidget& dialog = innermost(dialogs_);
    const std::vector<QWidget*> all = controls(dialog);
    if (all.empty() || dice_.chance(40)) {
        return anyKey(dialog);
    }
    randomClick(*dice_.of(all));
}

void Monkey::end(QWidget& dialog) {
    if (auto* box = qobject_cast<QMessageBox*>(&dialog)) {
        return answerBox(*box);
    }
    if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
        return answerFiles(*files);
    }
    if (auto* colors = qobject_cast<QColorDialog*>(&dialog)) {
        return answerColor(*colors);
    }
    std::vector<QAbstractButton*> buttons;
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>()) {
        static const QStringList ends = {QStringLiteral("Button2"), QStringLiteral("OKBtn"),
                                         QStringLiteral("CancelBtn"), QStringLiteral("OKButton")};
        const QString parent = button->parentWidget()->objectName();
        if (button->isEnabled() &&
            (ends.contains(button->objectName()) || parent.contains(QStringLiteral("Button")))) {
            buttons.push_back(button);
        }
    }
    const int way = dice_.below(10);
    note(QStringLiteral("    end %1").arg(way));
    if (way < 6 && !buttons.empty()) {
        QAbstractButton* button = dice_.of(buttons);
        mouse_.click(*button, button->rect().center());
    } else if (way < 7) {
        typeKey(dialog, Qt::Key_Return);
    } else if (way < 9) {
        typeKey(dialog, Qt::Key_Escape);
    } else {
        closeByFrame(dialog);
    }
}

void Monkey::answerBox(QMessageBox& box) {
    const QList<QAbstractButton*> buttons = box.buttons();
    if (dice_.chance(75)) {
        QAbstractButton* button = dice_.of(buttons);
        note(QStringLiteral("    ") + button->text());
        mouse_.click(*button, button->rect().center());
    } else if (dice_.chance(60)) {
        typeKey(box, dice_.chance(50) ? Qt::Key_Escape : Qt::Key_Return);
    } else {
        closeByFrame(box);
    }
}

void Monkey::answerFiles(QFileDialog& dialog) {
    static const QString names[] = {QStringLiteral("a.xsi"), QStringLiteral("b.xsi"),
                                    QStringLiteral("c"),     QStringLiteral("d.x"),
                                    QStringLiteral("e.msh"), QStringLiteral("f.g")};
    if (dice_.chance(25)) {
        dice_.chance(50) ? dialog.reject() : closeByFrame(dialog);
        return;
    }
    const bool saves = dialog.acceptMode() == QFileDialog::AcceptSave;
    const QString file = saves ? folder_ + u'/' + dice_.of(names) : anyFile();
    note(QStringLiteral("    ") + file.section(u'/', -1));
    dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(file);
    static_cast<QDialog&>(dialog).accept();
}

void Monkey::answerColor(QColorDialog& dialog) {
    dialog.setCurrentColor(QColor::fromRgb(static_cast<QRgb>(dice_.below(1 << 24))));
    switch (dice_.below(4)) {
    case 0:
        return typeKey(dialog, Qt::Key_Escape);
    case 1:
        return closeByFrame(dialog);
    default:
        static_cast<QDialog&>(dialog).accept();
    }
}

void Monkey::typeName() {
    static const QString names[] = {
        QStringLiteral("wing"),         QStringLiteral("Wing 2"),     QStringLiteral("frm-tip"),
        QStringLiteral("{a}"),          QStringLiteral("mesh"),       QStringLiteral("Frame"),
        QStringLiteral("\u00e4\u20ac"), QStringLiteral("scene_root"), QString()};
    const QWidget& dialog = innermost(dialogs_);
    if (dice_.chance(70)) {
        typeKey(dialog, Qt::Key_A, Qt::ControlModifier);
        typeKey(dialog, Qt::Key_Delete);
    }
    typeText(dialog, dice_.of(names));
}

void Monkey::chooseTexture() {
    static const QString names[] = {QStringLiteral("hull.bmp"), QStringLiteral("rock.tga"),
                                    QStringLiteral("sail.pic"), QStringLiteral("none.bmp"),
                                    QStringLiteral("*.tga"),    QStringLiteral("broken.tga"),
                                    QStringLiteral("."),        QStringLiteral("a b")};
    QWidget& dialog = innermost(dialogs_);
    auto* list = dialog.findChild<QListView*>(QStringLiteral("FileListBox1"));
    if (dice_.chance(70)) {
        auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("Edit1"));
        edit->setFocus();
        edit->clear();
        return typeText(dialog, folder_ + u'/' + dice_.of(names));
    }
    // the list is filled by another thread
    for (int i = 0; i < 500 && list->model()->rowCount(list->rootIndex()) == 0; ++i) {
        settle();
    }
    settle();
    const QModelIndex file = anyNode(*list);
    if (file.isValid() && file != list->rootIndex()) {
        list->scrollTo(file);
        const QPoint place = list->visualRect(file).center();
        dice_.chance(70) ? mouse_.click(*list->viewport(), place)
                         : mouse_.doubleClick(*list->viewport(), place);
    }
}

void Monkey::queueOne() {
    const auto later = [this](auto action) {
        QMetaObject::invokeMethod(&context_, action, Qt::QueuedConnection);
    };
    switch (dice_.below(8)) {
    case 0:
        return later([this] { anyKey(forms_.mainForm); });
    case 1:
        return later([this] { clickAnywhere(); });
    case 2:
        return later([this] { command(); });
    case 3:
        return later([this] { pressButton(); });
    case 4:
        return later([this] { undoSome(); });
    case 5:
        return later([this] { tool(); });
    case 6:
        return later([this] {
            if (active() != nullptr) {
                active()->close();
            }
        });
    default:
        return later([this] {
            if (auto* tree = qobject_cast<QTreeView*>(control("TreeView1"))) {
                tree->setCurrentIndex(anyNode(*tree));
            }
        });
    }
}

void Monkey::queueBehind() {
    QWidget& dialog = innermost(dialogs_);
    note(QStringLiteral("    queue behind"));
    const int before = dice_.below(3);
    const int after = dice_.between(1, 4);
    for (int i = 0; i < before; ++i) {
        queueOne();
    }
    const QPointer<QWidget> still(&dialog);
    const auto close = [this, still] {
        if (still && still->isVisible() && QApplication::activeModalWidget() == still) {
            end(*still);
        }
    };
    QMetaObject::invokeMethod(&context_, close, Qt::QueuedConnection);
    for (int i = 0; i < after; ++i) {
        queueOne();
    }
    // what the user did in the dialog just before
    const std::vector<QWidget*> all = controls(dialog);
    for (int i = 0; i < 2 && !all.empty(); ++i) {
        QWidget* widget = dice_.of(all);
        const QPoint at = anyPlace(*widget);
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QApplication::postEvent(
                widget,
                new QMouseEvent(type, at, widget->mapToGlobal(at), Qt::LeftButton,
                                type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                                Qt::NoModifier));
        }
        QApplication::postEvent(widget, new QKeyEvent(QEvent::KeyPress, Qt::Key_Space,
                                                      Qt::NoModifier, QStringLiteral(" ")));
    }
    settle();
}

} // namespace korvane::monkey
