#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <functional>
#include <utility>
#include <vector>

namespace korvane::test {

/// A widget, or a row or item of one, as assistive technology sees it on the accessibility bus.
/// Values that are not available are empty.
class AccessibleNode {
  public:
    enum State { Checked = 4, Focusable = 11, Focused = 12, Sensitive = 24, Showing = 25 };

    AccessibleNode(QDBusConnection bus, QString service, QString path)
        : bus_(std::move(bus)), service_(std::move(service)), path_(std::move(path)) {}

    /// The root of all programs on the session's accessibility bus.
    static AccessibleNode desktop() {
        const QDBusMessage answer =
            QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(
                QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
        return {QDBusConnection::connectToBus(answer.arguments().value(0).toString(),
                                              QStringLiteral("accessibility")),
                QStringLiteral("org.a11y.atspi.Registry"),
                QStringLiteral("/org/a11y/atspi/accessible/root")};
    }

    [[nodiscard]] QString role() const { return call("Accessible", "GetRoleName").toString(); }
    [[nodiscard]] QString name() const { return property("Accessible", "Name").toString(); }
    [[nodiscard]] QString description() const {
        return property("Accessible", "Description").toString();
    }
    [[nodiscard]] double value() const { return property("Value", "CurrentValue").toDouble(); }
    [[nodiscard]] QString text() const { return call("Text", "GetText", {0, -1}).toString(); }
    [[nodiscard]] bool is(State state) const {
        QList<uint> words;
        call("Accessible", "GetState").value<QDBusArgument>() >> words;
        return !words.isEmpty() && (words[0] >> static_cast<unsigned>(state) & 1U) != 0;
    }
    /// Does what a click would do. Does not wait for it to return: it may open a dialog.
    void act() const {
        QDBusMessage message = QDBusMessage::createMethodCall(
            service_, path_, interfaceName("Action"), QStringLiteral("DoAction"));
        message.setArguments({0});
        bus_.call(message, QDBus::NoBlock);
    }

    [[nodiscard]] std::vector<AccessibleNode> children() const {
        std::vector<AccessibleNode> found;
        const auto list = call("Accessible", "GetChildren").value<QDBusArgument>();
        for (list.beginArray(); !list.atEnd();) {
            QString service;
            QDBusObjectPath path;
            list.beginStructure();
            list >> service >> path;
            list.endStructure();
            found.emplace_back(bus_, service, path.path());
        }
        return found;
    }

    /// Returns the node itself and all below it that pass, depth first. Leaves out invisible nodes
    /// with all below them.
    [[nodiscard]] std::vector<AccessibleNode>
    all(const std::function<bool(const AccessibleNode&)>& passes) const {
        std::vector<AccessibleNode> found;
        std::vector<AccessibleNode> open = {*this};
        while (!open.empty()) {
            const AccessibleNode node = open.back();
            open.pop_back();
            if (passes(node)) {
                found.push_back(node);
            }
            const std::vector<AccessibleNode> below = node.children();
            for (auto child = below.rbegin(); child != below.rend(); ++child) {
                if (child->is(Showing)) {
                    open.push_back(*child);
                }
            }
        }
        return found;
    }

    /// Presses and releases a key, given as an X keysym.
    void press(unsigned keysym) const {
        constexpr uint keysymEvent = 3;
        static_cast<void>(send(QStringLiteral("org.a11y.atspi.Registry"),
                               QStringLiteral("/org/a11y/atspi/registry/deviceeventcontroller"),
                               QStringLiteral("org.a11y.atspi.DeviceEventController"),
                               QStringLiteral("GenerateKeyboardEvent"),
                               {static_cast<int>(keysym), QString(), keysymEvent}));
    }

  private:
    [[nodiscard]] QVariant send(const QString& service, const QString& path,
                                const QString& interface, const QString& method,
                                const QVariantList& arguments) const {
        QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
        message.setArguments(arguments);
        const QDBusMessage reply = bus_.call(message);
        return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0) : QVariant();
    }
    [[nodiscard]] QVariant call(const char* interface, const char* method,
                                const QVariantList& arguments = {}) const {
        return send(service_, path_, interfaceName(interface), QLatin1String(method), arguments);
    }
    [[nodiscard]] QVariant property(const char* interface, const char* name) const {
        return send(service_, path_, QStringLiteral("org.freedesktop.DBus.Properties"),
                    QStringLiteral("Get"), {interfaceName(interface), QLatin1String(name)})
            .value<QDBusVariant>()
            .variant();
    }
    static QString interfaceName(const char* name) {
        return QStringLiteral("org.a11y.atspi.") + QLatin1String(name);
    }

    QDBusConnection bus_;
    QString service_;
    QString path_;
};

} // namespace korvane::test
