#include "app/shell/ClipboardHandOver.h"

#ifdef KORVANE_XCB

#include <QAbstractNativeEventFilter>
#include <QClipboard>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QTimer>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace korvane {

namespace {

// Large contents take long, but a manager at work keeps sending requests.
constexpr std::chrono::milliseconds longestSilence{1000};
constexpr std::chrono::milliseconds longest{20000};

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <class Reply>
using ReplyOf = std::unique_ptr<Reply, Free>;

xcb_atom_t atom(xcb_connection_t* connection, const char* name) {
    const auto length = static_cast<std::uint16_t>(std::strlen(name));
    const ReplyOf<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, xcb_intern_atom(connection, 0, length, name), nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

/// Asks the clipboard manager to save the clipboard, and receives its answer through a window.
class SaveRequest : public QAbstractNativeEventFilter {
  public:
    explicit SaveRequest(xcb_connection_t* connection)
        : connection_(connection), window_(xcb_generate_id(connection)) {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, window_, screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        QCoreApplication::instance()->installNativeEventFilter(this);
    }
    ~SaveRequest() override {
        QCoreApplication::instance()->removeNativeEventFilter(this);
        xcb_destroy_window(connection_, window_);
        xcb_flush(connection_);
    }
    SaveRequest(const SaveRequest&) = delete;
    SaveRequest& operator=(const SaveRequest&) = delete;

    void send(xcb_atom_t manager) {
        const xcb_atom_t saveTargets = atom(connection_, "SAVE_TARGETS");
        // a property that does not exist requests all formats
        xcb_convert_selection(connection_, window_, manager, saveTargets, saveTargets,
                              XCB_CURRENT_TIME);
        xcb_flush(connection_);
    }
    /// Returns true if there is nothing to wait for.
    [[nodiscard]] bool ended() const {
        return answered_ || silence_.hasExpired() || deadline_.hasExpired();
    }

    bool nativeEventFilter(const QByteArray& eventType, void* message,
                           qintptr* /*result*/) override {
        if (eventType != "xcb_generic_event_t") {
            return false;
        }
        const auto* event = static_cast<const xcb_generic_event_t*>(message);
        constexpr unsigned sentBit = 0x80;
        const unsigned type = event->response_type & ~sentBit;
        if (type == XCB_SELECTION_REQUEST || type == XCB_PROPERTY_NOTIFY) {
            silence_ = QDeadlineTimer(longestSilence);
        } else if (type == XCB_SELECTION_NOTIFY) {
            const auto* answer = static_cast<const xcb_selection_notify_event_t*>(message);
            answered_ = answered_ || answer->requestor == window_;
        }
        return false;
    }

  private:
    xcb_connection_t* connection_;
    xcb_window_t window_;
    bool answered_ = false;
    QDeadlineTimer silence_{longestSilence};
    QDeadlineTimer deadline_{longest};
};

} // namespace

// Qt does the same in the application's destructor. But then nothing serves the pieces in which X11
// transfers large contents, so a manager would only receive small ones.
void handOverClipboard() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr || !QGuiApplication::clipboard()->ownsClipboard()) {
        return;
    }
    xcb_connection_t* connection = x11->connection();
    const xcb_atom_t manager = atom(connection, "CLIPBOARD_MANAGER");
    const ReplyOf<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, manager), nullptr));
    if (!owner || owner->owner == XCB_NONE) {
        return;
    }
    SaveRequest request(connection);
    request.send(manager);
    QTimer wake; // there may be no events
    wake.start(longestSilence / 4);
    while (!request.ended()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

} // namespace korvane

#else

void korvane::handOverClipboard() {}

#endif
