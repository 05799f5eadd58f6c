#ifdef KORVANE_XCB

#include "app/shell/ClipboardHandOver.h"

#include "support/GuiTest.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QMimeData>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace korvane::test {
namespace {

constexpr const char* format = "some, format";

template <class Reply>
auto owned(Reply* reply) {
    return std::unique_ptr<Reply, decltype(&std::free)>(reply, &std::free);
}

/// A clipboard manager that takes one format, in the pieces in which large contents come. It works
/// on a connection of its own, as another program would, whenever this one looks for events.
class Manager {
  public:
    explicit Manager(bool answers) {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                          &events);
        xcb_set_selection_owner(connection_, window_, atom("CLIPBOARD_MANAGER"), XCB_CURRENT_TIME);
        atom("INCR"); // by its answer all of it is done
        QObject::connect(&poll_, &QTimer::timeout, &poll_, [this] { poll(); });
        if (answers) {
            poll_.start(1);
        }
    }
    ~Manager() { xcb_disconnect(connection_); }
    Manager(const Manager&) = delete;
    Manager& operator=(const Manager&) = delete;

    [[nodiscard]] const QByteArray& saved() const { return saved_; }

  private:
    xcb_atom_t atom(const char* name) const {
        const auto length = static_cast<std::uint16_t>(std::strlen(name));
        const auto cookie = xcb_intern_atom(connection_, 0, length, name);
        return owned(xcb_intern_atom_reply(connection_, cookie, nullptr))->atom;
    }
    void poll() {
        while (const auto event = owned(xcb_poll_for_event(connection_))) {
            const unsigned type = event->response_type & 0x7fU;
            const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
            if (type == XCB_SELECTION_REQUEST) {
                asked_ = reinterpret_cast<const xcb_selection_request_event_t&>(*event);
                xcb_convert_selection(connection_, window_, clipboard_, format_, format_,
                                      XCB_CURRENT_TIME);
            } else if (type == XCB_PROPERTY_NOTIFY && change.state == XCB_PROPERTY_NEW_VALUE) {
                take();
            }
        }
        xcb_flush(connection_);
    }
    /// Takes a piece of the content; the first one only announces them, an empty one is the last.
    void take() {
        const auto cookie =
            xcb_get_property(connection_, 1, window_, format_, XCB_ATOM_ANY, 0, 0x1fffffff);
        const auto reply = owned(xcb_get_property_reply(connection_, cookie, nullptr));
        const int size = reply->type == format_ ? xcb_get_property_value_length(reply.get()) : 0;
        saved_.append(static_cast<const char*>(xcb_get_property_value(reply.get())), size);
        if (reply->type == format_ && size == 0) {
            // a manager that has it all owns it from now on
            xcb_set_selection_owner(connection_, window_, clipboard_, XCB_CURRENT_TIME);
            const xcb_selection_notify_event_t answer = {XCB_SELECTION_NOTIFY,
                                                         0,
                                                         0,
                                                         asked_.time,
                                                         asked_.requestor,
                                                         asked_.selection,
                                                         asked_.target,
                                                         asked_.property};
            xcb_send_event(connection_, 0, asked_.requestor, 0,
                           reinterpret_cast<const char*>(&answer));
        }
    }

    xcb_connection_t* connection_ = xcb_connect(nullptr, nullptr);
    xcb_window_t window_ = xcb_generate_id(connection_);
    xcb_atom_t format_ = atom(format);
    xcb_atom_t clipboard_ = atom("CLIPBOARD");
    xcb_selection_request_event_t asked_ = {};
    QByteArray saved_;
    QTimer poll_;
};

/// Puts the content on the clipboard and hands it over; how long that takes, in milliseconds.
qint64 handOver(const QByteArray& content) {
    QApplication::clipboard()->clear();
    if (!content.isEmpty()) {
        auto* data = new QMimeData; // the clipboard takes it over
        data->setData(QString::fromLatin1(format), content);
        QApplication::clipboard()->setMimeData(data);
    }
    settle();
    QElapsedTimer timer;
    timer.start();
    handOverClipboard();
    return timer.elapsed();
}

TEST(ClipboardHandOver, AManagerGetsALargeContent) {
    QByteArray content(40'000'000, 'a');
    for (qsizetype i = 0; i < content.size(); i += 1000) {
        content[i] = static_cast<char>(i / 1000);
    }
    const Manager manager(true);
    handOver(content);
    EXPECT_TRUE(manager.saved() == content);
    settle();
    EXPECT_FALSE(QApplication::clipboard()->ownsClipboard());
}

TEST(ClipboardHandOver, NobodyIsWaitedForLong) {
    EXPECT_LT(handOver("content"), 500) << "there is no manager";
    const Manager silent(false);
    EXPECT_LT(handOver("content"), 3000);
    EXPECT_LT(handOver({}), 500) << "there is nothing of ours to save";
}

} // namespace
} // namespace korvane::test

#endif
