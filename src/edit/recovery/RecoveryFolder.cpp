#include "edit/recovery/RecoveryFolder.h"

#include "formats/files/AtomicFile.h"
#include "formats/files/ByteReader.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QStandardPaths>

#include <exception>
#include <utility>

namespace korvane {

namespace {

QString copyName(const QString& folder, const QString& id) {
    return folder + u'/' + id + QStringLiteral(".copy");
}

QString lockName(const QString& copy) {
    return QFileInfo(copy).path() + u'/' + QFileInfo(copy).completeBaseName() +
           QStringLiteral(".lock");
}

QString stateFolder() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    return (QDir::isAbsolutePath(named) ? named
                                        : QDir::homePath() + QStringLiteral("/.local/state")) +
           QStringLiteral("/korvane-editor");
#else
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
#endif
}

} // namespace

ClaimedCopy::ClaimedCopy(QString fileName, FileLock lock)
    : fileName_(std::move(fileName)), lock_(std::move(lock)) {}

std::optional<ClaimedCopy> ClaimedCopy::claim(const QString& fileName) {
    std::optional<FileLock> lock = FileLock::take(lockName(fileName));
    return lock ? std::optional(ClaimedCopy(fileName, std::move(*lock))) : std::nullopt;
}

ClaimedCopy& ClaimedCopy::operator=(ClaimedCopy&& other) noexcept {
    std::swap(fileName_, other.fileName_);
    std::swap(lock_, other.lock_);
    return *this;
}

ClaimedCopy::~ClaimedCopy() {
    if (lock_.held() && !QFileInfo::exists(fileName_)) {
        lock_.remove();
    }
}

bool ClaimedCopy::isThere() const {
    return QFileInfo::exists(lockName(fileName_));
}

bool ClaimedCopy::write(const ModelDocument& document) {
    const std::int64_t now = QDateTime::currentMSecsSinceEpoch();
    return replaceOwnFile(fileName_,
                          [&](const TextSink& sink) { return writeCopy(document, now, sink); });
}

CopyHead ClaimedCopy::head() const {
    QFile file(fileName_);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return {};
    }
    const QByteArray start = file.read(longestCopyHead);
    return readCopyHead(bytesOf(start), static_cast<std::uint64_t>(file.size()));
}

std::optional<ModelDocument> ClaimedCopy::read(const TextureSource& textures) const {
    QFile file(fileName_);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return std::nullopt;
    }
    return readCopy(bytesOf(file.readAll()), textures);
}

void ClaimedCopy::remove() {
    QFile::remove(fileName_);
}

RecoveryFolder::RecoveryFolder(QString path, const RecoveryLimits& limits)
    : path_(std::move(path)), limits_(limits) {}

RecoveryFolder RecoveryFolder::ofUser() {
    return RecoveryFolder(stateFolder() + QStringLiteral("/recovery"));
}

bool RecoveryFolder::prepare() const {
    constexpr auto ours = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    const QFileInfo folder(path_);
    if (!folder.isDir()) {
        QDir().mkpath(folder.path());
        return QDir().mkdir(path_, ours);
    }
    // the system tells the owner's permissions once more as those of the user
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                            QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    return !(folder.permissions() & others) || QFile::setPermissions(path_, ours);
}

std::optional<ClaimedCopy> RecoveryFolder::newPlace() const {
    if (!prepare()) {
        return std::nullopt;
    }
    const quint64 number = QRandomGenerator::system()->generate64();
    return ClaimedCopy::claim(
        copyName(path_, QStringLiteral("%1").arg(number, 16, 16, QLatin1Char('0'))));
}

std::vector<LeftCopy> RecoveryFolder::claimLeft() const {
    // newest first: by the system's time, which a damaged copy has as well
    const QDir folder(path_);
    QStringList ids;
    for (const QString& name :
         folder.entryList({QStringLiteral("*.copy")}, QDir::Files, QDir::Time) +
             folder.entryList(QDir::Files)) {
        ids += name.section(u'.', 0, 0);
    }
    ids.removeDuplicates();
    std::vector<LeftCopy> left;
    std::size_t readable = 0;
    std::uint64_t bytes = 0;
    const QDateTime oldest = QDateTime::currentDateTime().addSecs(-limits_.age.count());
    for (const QString& id : std::as_const(ids)) {
        std::optional<ClaimedCopy> place = ClaimedCopy::claim(copyName(path_, id));
        if (!place) {
            continue; // its program lives
        }
        for (const QString& unfinished :
             folder.entryList({id + QStringLiteral(".copy.*")}, QDir::Files)) {
            QFile::remove(folder.filePath(unfinished));
        }
        const QFileInfo file(place->fileName());
        const auto size = static_cast<std::uint64_t>(file.size());
        if (!file.exists()) {
            continue;
        }
        const CopyHead head = place->head();
        // what this version cannot read another one may, or a person
        if (head.fault == CopyFault::None) {
            if (readable >= limits_.copies || bytes + size > limits_.bytes ||
                file.lastModified() < oldest) {
                place->remove();
                continue;
            }
            ++readable;
            bytes += size;
        }
        left.push_back({std::move(*place), head});
    }
    return left;
}

} // namespace korvane
