#ifdef KORVANE_XCB

#include "app/shell/ClipboardHandOver.h"

#include "support/GuiTest.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>

#include <string_view>
#include <xcb/xcb.h>

namespace korvane::test {
namespace {

template <class Reply>
using Owned = QScopedPointer<Reply, QScopedPointerPodDeleter>;

/// A clipboard manager that receives text, large text in pieces. Like another program, it has its
/// own connection. It works once the test has started its timer.
class Manager : public QObject {
  public:
    Manager() {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
        constexpr std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(connection_, 0, window_, root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          0, XCB_CW_EVENT_MASK, &events);
        xcb_set_selection_owner(connection_, window_, atom("CLIPBOARD_MANAGER"), XCB_CURRENT_TIME);
        clipboard_ = atom("CLIPBOARD"); // its reply also means that the requests above are done
    }
    ~Manager() override { xcb_disconnect(connection_); }

    QByteArray saved;

  private:
    xcb_atom_t atom(std::string_view name) const {
        const auto length = static_cast<std::uint16_t>(name.size());
        const auto cookie = xcb_intern_atom(connection_, 0, length, name.data());
        return Owned<xcb_intern_atom_reply_t>(xcb_intern_atom_reply(connection_, cookie, nullptr))
            ->atom;
    }
    void timerEvent(QTimerEvent* /*event*/) override {
        while (const auto event = Owned<xcb_generic_event_t>(xcb_poll_for_event(connection_))) {
            if ((event->response_type & 0x7fU) == XCB_SELECTION_REQUEST) {
                asks_ = reinterpret_cast<const xcb_selection_request_event_t&>(*event).requestor;
                xcb_convert_selection(connection_, window_, clipboard_, XCB_ATOM_STRING,
                                      XCB_ATOM_STRING, XCB_CURRENT_TIME);
            }
            takePiece();
        }
        xcb_flush(connection_);
    }
    /// Receives a piece of the text if there is one; the last one is empty.
    void takePiece() {
        const auto cookie =
            xcb_get_property(connection_, 1, window_, XCB_ATOM_STRING, XCB_ATOM_ANY, 0, 0x1fffffff);
        const Owned<xcb_get_property_reply_t> piece(
            xcb_get_property_reply(connection_, cookie, nullptr));
        if (piece->type == XCB_ATOM_STRING && piece->length > 0) {
            saved.append(static_cast<const char*>(xcb_get_property_value(piece.get())),
                         xcb_get_property_value_length(piece.get()));
        } else if (piece->type == XCB_ATOM_STRING) {
            xcb_selection_notify_event_t answer[2] = {}; // at least 32 bytes, the size of an event
            answer->response_type = XCB_SELECTION_NOTIFY;
            answer->requestor = asks_;
            xcb_send_event(connection_, 0, asks_, 0, reinterpret_cast<const char*>(answer));
        }
    }

    xcb_connection_t* connection_ = xcb_connect(nullptr, nullptr);
    xcb_window_t window_ = xcb_generate_id(connection_);
    xcb_atom_t clipboard_ = XCB_NONE;
    xcb_window_t asks_ = XCB_NONE; ///< has asked to save the clipboard
};

/// Puts a text, or nothing, on the clipboard and hands it over. Returns the milliseconds this
/// takes.
qint64 handOver(const QByteArray& text) {
    QClipboard& clipboard = *QApplication::clipboard();
    text.isEmpty() ? clipboard.clear() : clipboard.setText(QString::fromLatin1(text));
    settle();
    QElapsedTimer timer;
    timer.start();
    handOverClipboard();
    return timer.elapsed();
}

TEST(ClipboardHandOver, ManagerReceivesLargeText) {
    const QByteArray text = QByteArray("a piece").repeated(6'000'000);
    Manager manager;
    manager.startTimer(1);
    handOver(text);
    EXPECT_TRUE(manager.saved == text);
}

TEST(ClipboardHandOver, NeverWaitsLong) {
    EXPECT_LT(handOver("text"), 500) << "no manager";
    const Manager silent;
    EXPECT_LT(handOver("text"), 3000);
    EXPECT_LT(handOver({}), 500) << "nothing to save";
}

} // namespace
} // namespace korvane::test

#endif
