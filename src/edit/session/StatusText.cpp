#include "edit/session/StatusText.h"

#include "formats/xsi/FrameNames.h"
#include "model/document/ModelCounts.h"
#include "model/records/FrameWalk.h"
#include "model/records/ModelText.h"

#include <QStringList>

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace korvane {

namespace {

/// A name on one line, without its middle where it is long: files can hold names of any length.
QString shortName(const QString& name) {
    constexpr qsizetype longest = 48;
    constexpr qsizetype kept = longest / 2 - 1;
    const QString line = name.simplified();
    return line.size() <= longest ? line : line.first(kept) + u'…' + line.last(kept);
}

/// "; not found: rock.tga, sail.pic and 2 more", or nothing where there are no names.
QString listed(const char* what, const QStringList& names) {
    constexpr qsizetype most = 2;
    if (names.isEmpty()) {
        return {};
    }
    const QString first = names.first(std::min(names.size(), most)).join(QStringLiteral(", "));
    const qsizetype more = names.size() - most;
    return QStringLiteral("; %1: %2").arg(QLatin1String(what), first) +
           (more > 0 ? QStringLiteral(" and %1 more").arg(more) : QString());
}

QStringList shown(const std::vector<std::string>& names) {
    QStringList texts;
    for (const std::string& name : names) {
        texts += shortName(shownText(name));
    }
    return texts;
}

/// The names, in quotes and each once, that a reading of the saved file would not give back.
QStringList lostNames(const FrameRecord& root) {
    QStringList lost;
    std::unordered_set<std::string_view> known;
    for (FrameWalk walk(root); !walk.done(); walk.next()) {
        const std::string& name = walk.frame().Name;
        if (!lostNameReason(name, nameUse(walk.frame(), walk.depth() == 0)).isEmpty() &&
            known.insert(name).second) {
            lost += u'"' + shortName(shownText(name)) + u'"';
        }
    }
    return lost;
}

} // namespace

QString countsText(const ModelDocument& document) {
    return QString::fromStdString(summary(countModel(document.Root)));
}

QString openedText(const ModelDocument& document, const UnseenTextures& unseen) {
    return countsText(document) + listed("not found", shown(unseen.notFound)) +
           listed("not shown", shown(unseen.notShown));
}

QString undoneText(std::string_view change) {
    return QStringLiteral("Undone: ") + shownText(change);
}

QString redoneText(std::string_view change) {
    return QStringLiteral("Redone: ") + shownText(change);
}

QString savedText(const ModelDocument& document, SaveResult result) {
    const QString name = shortName(document.FileName.section(u'/', -1));
    switch (result) {
    case SaveResult::NotWritten:
        return QStringLiteral("Nothing was written: %1 is not a dotXSI file").arg(name);
    case SaveResult::Failed:
        return QStringLiteral("Nothing was written: unable to save %1").arg(name);
    case SaveResult::Written:
        break;
    }
    return QStringLiteral("%1 was written: ").arg(name) + countsText(document) +
           listed("names that it will not give back", lostNames(document.Root));
}

} // namespace korvane
