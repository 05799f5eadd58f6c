#ifdef KORVANE_XCB

#include "app/shell/ClipboardHandOver.h"

#include "support/GuiTest.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QMimeData>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>
#include <xcb/xcb.h>

namespace korvane::test {
namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};
template <class Type>
using Owned = std::unique_ptr<Type, Free>;

/// A clipboard manager that takes one format, in the pieces in which large contents come. It works
/// on a connection of its own in a thread of its own, as another program would.
class Manager {
  public:
    explicit Manager(const char* format) : connection_(xcb_connect(nullptr, nullptr)) {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
        window_ = xcb_generate_id(connection_);
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                          &events);
        format_ = atom(format);
        clipboard_ = atom("CLIPBOARD");
        increments_ = atom("INCR");
        xcb_set_selection_owner(connection_, window_, atom("CLIPBOARD_MANAGER"), XCB_CURRENT_TIME);
        Owned<xcb_get_input_focus_reply_t>(xcb_get_input_focus_reply(
            connection_, xcb_get_input_focus(connection_), nullptr)); // all of it is done
    }
    ~Manager() {
        if (thread_.joinable()) {
            thread_.join();
        }
        xcb_disconnect(connection_);
    }
    Manager(const Manager&) = delete;
    Manager& operator=(const Manager&) = delete;

    /// Serves one request to save; without it the manager is one that does not answer.
    void serve() {
        deadline_ = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        thread_ = std::thread([this] { save(); });
    }
    /// What was saved; waits for it, though not for ever.
    [[nodiscard]] QByteArray saved() {
        thread_.join();
        return saved_;
    }

  private:
    xcb_atom_t atom(const char* name) const {
        const auto length = static_cast<std::uint16_t>(std::strlen(name));
        return Owned<xcb_intern_atom_reply_t>(
                   xcb_intern_atom_reply(connection_, xcb_intern_atom(connection_, 0, length, name),
                                         nullptr))
            ->atom;
    }
    /// The next event of the type; none when it does not come in time.
    Owned<xcb_generic_event_t> next(unsigned type) {
        using namespace std::chrono_literals;
        xcb_flush(connection_);
        while (std::chrono::steady_clock::now() < deadline_) {
            Owned<xcb_generic_event_t> event(xcb_poll_for_event(connection_));
            if (event && (event->response_type & 0x7fU) == type) {
                return event;
            }
            if (!event) {
                std::this_thread::sleep_for(1ms);
            }
        }
        return {};
    }
    /// Takes the property that the content comes in, or a piece of it; false for an empty one.
    bool take() {
        const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(
            connection_,
            xcb_get_property(connection_, 1, window_, format_, XCB_ATOM_ANY, 0, 0x1fffffff),
            nullptr));
        inPieces_ = inPieces_ || reply->type == increments_;
        const int size = reply->type == format_ ? xcb_get_property_value_length(reply.get()) : 0;
        saved_.append(static_cast<const char*>(xcb_get_property_value(reply.get())), size);
        return size > 0;
    }
    void save() {
        const auto request = next(XCB_SELECTION_REQUEST);
        if (!request) {
            return;
        }
        const auto asked = *reinterpret_cast<const xcb_selection_request_event_t*>(request.get());
        xcb_convert_selection(connection_, window_, clipboard_, format_, format_, XCB_CURRENT_TIME);
        next(XCB_SELECTION_NOTIFY);
        take();
        for (bool more = inPieces_; more;) {
            const auto event = next(XCB_PROPERTY_NOTIFY);
            if (!event) {
                return;
            }
            const auto& change = *reinterpret_cast<const xcb_property_notify_event_t*>(event.get());
            more = change.state != XCB_PROPERTY_NEW_VALUE || change.atom != format_ || take();
        }
        // a manager that has it all owns it from now on
        xcb_set_selection_owner(connection_, window_, clipboard_, XCB_CURRENT_TIME);
        xcb_selection_notify_event_t answer = {};
        answer.response_type = XCB_SELECTION_NOTIFY;
        answer.requestor = asked.requestor;
        answer.selection = asked.selection;
        answer.target = asked.target;
        answer.property = asked.property;
        xcb_send_event(connection_, 0, asked.requestor, 0, reinterpret_cast<const char*>(&answer));
        xcb_flush(connection_);
    }

    xcb_connection_t* connection_;
    xcb_window_t window_ = XCB_NONE;
    xcb_atom_t format_ = XCB_ATOM_NONE;
    xcb_atom_t clipboard_ = XCB_ATOM_NONE;
    xcb_atom_t increments_ = XCB_ATOM_NONE;
    bool inPieces_ = false;
    std::chrono::steady_clock::time_point deadline_;
    QByteArray saved_;
    std::thread thread_;
};

class ClipboardHandOver : public GuiTest {
  protected:
    static void offer(const QByteArray& content) {
        auto* data = new QMimeData; // the clipboard takes it over
        data->setData(QStringLiteral("some, format"), content);
        QApplication::clipboard()->setMimeData(data);
        settle();
    }
    static qint64 handOver() {
        QElapsedTimer timer;
        timer.start();
        handOverClipboard();
        return timer.elapsed();
    }
};

TEST_F(ClipboardHandOver, AManagerGetsContentsOfAnySize) {
    for (const qsizetype size : {qsizetype{10}, qsizetype{40'000'000}}) {
        QByteArray content(size, 'a');
        for (qsizetype i = 0; i < size; i += 1000) {
            content[i] = static_cast<char>(i / 1000);
        }
        offer(content);
        Manager manager("some, format");
        manager.serve();
        handOver();
        EXPECT_TRUE(manager.saved() == content) << size;
        settle();
        EXPECT_FALSE(QApplication::clipboard()->ownsClipboard());
    }
}

TEST_F(ClipboardHandOver, NobodyIsWaitedForLong) {
    offer("content");
    EXPECT_LT(handOver(), 500); // there is no manager
    {
        const Manager silent("some, format");
        EXPECT_LT(handOver(), 3000);
    }
    QApplication::clipboard()->clear();
    settle();
    const Manager silent("some, format");
    EXPECT_LT(handOver(), 500); // there is nothing of ours to save
}

} // namespace
} // namespace korvane::test

#endif
