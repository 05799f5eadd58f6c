#include "edit/recovery/RecoveryFolder.h"

#include "formats/files/AtomicFile.h"
#include "formats/files/ByteReader.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStandardPaths>

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

constexpr int idLength = 16;

/// The id in the name of a copy, its lock or an unfinished copy; empty for any other file.
QString idOf(const QString& fileName) {
    static const QRegularExpression ours(
        QStringLiteral("^([0-9a-f]{16})\\.(lock|copy(\\..{6})?)$"));
    return ours.match(fileName).captured(1);
}

/// Newest first, by the file's time: damaged copies have one too.
QFileInfoList copiesIn(const QString& folder) {
    QFileInfoList copies =
        QDir(folder).entryInfoList({QStringLiteral("*.copy")}, QDir::Files, QDir::Time);
    copies.removeIf([](const QFileInfo& copy) { return idOf(copy.fileName()).isEmpty(); });
    return copies;
}

std::uint64_t sizeOf(const QFileInfo& file) {
    return static_cast<std::uint64_t>(file.size());
}

std::optional<ClaimedCopy> claimReadable(const QFileInfo& copy) {
    std::optional<ClaimedCopy> place = ClaimedCopy::claim(copy.filePath());
    if (place && place->head().fault != CopyFault::None) {
        place.reset();
    }
    return place;
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

bool ClaimedCopy::isClaimed() const {
    return QFileInfo::exists(lockName(fileName_));
}

bool ClaimedCopy::holdsCopy() const {
    return isClaimed() && QFileInfo::exists(fileName_);
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
    // checks the size before reading the file into memory
    if (head().fault != CopyFault::None ||
        !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
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
        return QDir().mkdir(path_, ours) || QFileInfo(path_).isDir(); // another program's, by now
    }
    // permissions() also reports the owner's as the user's
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                            QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    return !(folder.permissions() & others) || QFile::setPermissions(path_, ours);
}

std::optional<ClaimedCopy> RecoveryFolder::claimNewPlace() const {
    if (!prepare()) {
        return std::nullopt;
    }
    // another program may briefly claim it to see whether it was left behind
    constexpr int tries = 3;
    std::optional<ClaimedCopy> place;
    for (int i = 0; i < tries && !place; ++i) {
        const quint64 number = QRandomGenerator::system()->generate64();
        place = ClaimedCopy::claim(
            copyName(path_, QStringLiteral("%1").arg(number, idLength, 16, QLatin1Char('0'))));
    }
    return place;
}

std::vector<LeftCopy> RecoveryFolder::claimLeft() const {
    const QDir folder(path_);
    QStringList ids;
    for (const QFileInfo& copy : copiesIn(path_)) {
        ids += idOf(copy.fileName());
    }
    for (const QString& name : folder.entryList(QDir::Files)) {
        ids += idOf(name);
    }
    ids.removeAll(QString());
    ids.removeDuplicates();
    std::vector<LeftCopy> left;
    for (const QString& id : std::as_const(ids)) {
        std::optional<ClaimedCopy> place = ClaimedCopy::claim(copyName(path_, id));
        if (!place) {
            continue; // its program still runs
        }
        for (const QString& unfinished :
             folder.entryList({id + QStringLiteral(".copy.??????")}, QDir::Files)) {
            QFile::remove(folder.filePath(unfinished));
        }
        if (QFileInfo::exists(place->fileName())) {
            const CopyHead head = place->head();
            left.push_back({std::move(*place), head});
        }
    }
    return left;
}

void RecoveryFolder::makeRoom() const {
    const QFileInfoList copies = copiesIn(path_);
    std::uint64_t bytes = 0;
    for (const QFileInfo& copy : copies) {
        bytes += sizeOf(copy);
    }
    if (static_cast<std::size_t>(copies.size()) <= limits_.copies && bytes <= limits_.bytes) {
        return; // even including those of running programs
    }
    std::size_t kept = 0;
    bytes = 0;
    for (const QFileInfo& copy : copies) {
        std::optional<ClaimedCopy> place = claimReadable(copy);
        if (!place) {
            continue;
        }
        if (kept >= limits_.copies || (kept > 0 && bytes + sizeOf(copy) > limits_.bytes)) {
            place->remove();
            continue;
        }
        ++kept;
        bytes += sizeOf(copy);
    }
}

void RecoveryFolder::removeOld() const {
    const QDateTime oldest = QDateTime::currentDateTime().addSecs(-limits_.age.count());
    for (const QFileInfo& copy : copiesIn(path_)) {
        if (copy.lastModified() >= oldest) {
            continue;
        }
        if (std::optional<ClaimedCopy> place = claimReadable(copy)) {
            place->remove();
        }
    }
}

} // namespace korvane
