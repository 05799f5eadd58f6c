#include "app/shell/ModelClipboard.h"

#include "edit/clipboard/ClipboardReader.h"
#include "formats/files/ByteReader.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <memory>

namespace korvane {

namespace {

/// Returns Qt's name of a format that other programs see by this name.
QString nativeFormat(const QString& name) {
#ifdef Q_OS_WIN
    return QStringLiteral("application/x-qt-windows-mime;value=\"%1\"").arg(name);
#else
    return name;
#endif
}

QString blockFormat() {
    return nativeFormat(QStringLiteral("Korvane II Model Editor, String"));
}

/// Contains only the first four bytes of the block, so that a query need not transfer all of it.
QString contentFormat() {
    return nativeFormat(QStringLiteral("Korvane II Model Editor, String, Content"));
}

constexpr qsizetype contentSize = 4;

} // namespace

ModelClipboard::ModelClipboard() {
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            [this] { asked_ = false; });
    // an owner that was too busy to answer may have recovered while the user was elsewhere
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) {
                asked_ = asked_ && (answered_ || state != Qt::ApplicationActive);
            });
}

void ModelClipboard::put(const QByteArray& block) {
    auto data = std::make_unique<QMimeData>();
    // the block last: some clipboard managers lose the first one of several formats
    data->setData(contentFormat(), block.first(contentSize));
    data->setData(blockFormat(), block);
    QGuiApplication::clipboard()->setMimeData(data.release()); // takes it over
}

std::optional<ClipboardContent> ModelClipboard::content() {
    if (!asked_) {
        ask();
    }
    return content_;
}

void ModelClipboard::ask() {
    asked_ = true;
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    // once: each query waits for the owner
    const QStringList formats = data != nullptr ? data->formats() : QStringList();
    answered_ = !formats.isEmpty();
    content_.reset();
    if (formats.contains(blockFormat())) {
        content_ = contentOf(bytesOf(
            data->data(formats.contains(contentFormat()) ? contentFormat() : blockFormat())));
    }
}

QByteArray ModelClipboard::block() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr ? data->data(blockFormat()) : QByteArray();
}

} // namespace korvane
