// Uses the whole editor at random, and checks that everything can be undone; see run.

#include "Journal.h"
#include "Monkey.h"
#include "app/shell/EditorApplication.h"
#include "formats/xsi/XsiWriter.h"
#include "support/RandomModel.h"
#include "support/SmallModel.h"

#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>

namespace korvane::monkey {

namespace {

void write(const QString& name, const QByteArray& content) {
    QFile file(name);
    expect(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
           "the story's folder cannot be written");
}

/// What the story may open: copies of the samples, small models, and files that are no models.
void fillFolder(const QDir& folder, std::uint32_t seed) {
    const QDir samples(QStringLiteral(KORVANE_SAMPLES));
    const QStringList files = samples.entryList(QDir::Files);
    for (const QString& name : files) {
        QFile::copy(samples.filePath(name), folder.filePath(name));
    }
    constexpr int deepest = 3;
    for (std::uint32_t i = 0; i < 4; ++i) {
        SaveFileXSI(test::RandomModel(4 * seed + i, deepest).make(),
                    folder.filePath(QStringLiteral("random%1.xsi").arg(i)));
    }
    const QByteArray small = QByteArray::fromStdString(test::smallModel());
    for (const char* name : {"small.xsi", "small2.xsi", "small3.xsi"}) {
        write(folder.filePath(QString::fromLatin1(name)), small);
    }
    write(folder.filePath(QStringLiteral("cut.xsi")), small.first(small.size() / 2));
    write(folder.filePath(QStringLiteral("broken.xsi")), "no model");
    write(folder.filePath(QStringLiteral("broken.tga")), "no picture");
    write(folder.filePath(QStringLiteral("mesh.msh")), "no mesh");
}

std::size_t playStory(std::uint32_t seed) {
    beginStory(seed);
    const QTemporaryDir state; // keeps one story's recovery copies from the next
    qputenv("XDG_STATE_HOME", state.path().toLocal8Bit());
    const QTemporaryDir folder;
    expect(folder.isValid(), "there is no folder for the story");
    fillFolder(folder.path(), seed);
    QDir::setCurrent(folder.path());
    constexpr int shortest = 100;
    constexpr std::uint32_t longer = 200;
    const std::size_t steps =
        Monkey(seed, folder.path()).live(shortest + static_cast<int>(seed % longer));
    QDir::setCurrent(QDir::rootPath());
    return steps;
}

} // namespace

int run(const QStringList& words) {
    QCommandLineParser options;
    options.addHelpOption();
    options.addOptions({{QStringLiteral("seed"), QStringLiteral("Plays the story of seed <N>."),
                         QStringLiteral("N"), QStringLiteral("1")},
                        {QStringLiteral("seconds"),
                         QStringLiteral("Continues with the next seeds for <S> seconds."),
                         QStringLiteral("S"), QStringLiteral("0")},
                        {QStringLiteral("tell"), QStringLiteral("Prints every action.")}});
    options.process(words);
    printActions(options.isSet(QStringLiteral("tell")));
    watchProgram();
    constexpr qint64 second = 1000;
    const qint64 time = options.value(QStringLiteral("seconds")).toLongLong() * second;
    std::uint32_t seed = options.value(QStringLiteral("seed")).toUInt();
    QElapsedTimer timer;
    timer.start();
    std::size_t steps = 0;
    do {
        steps += playStory(seed++);
    } while (timer.elapsed() < time);
    const double seconds = static_cast<double>(timer.elapsed()) / static_cast<double>(second);
    std::printf("no fault in %lld actions, %.1f a second; the checks took %zu steps\n",
                static_cast<long long>(actionCount()), static_cast<double>(actionCount()) / seconds,
                steps);
    return 0;
}

} // namespace korvane::monkey

int main(int argc, char** argv) {
    QStringList words;
    for (int i = 0; i < argc; ++i) {
        words += QString::fromLocal8Bit(argv[i]);
    }
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const auto application = korvane::EditorApplication::onDisplay(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QApplication::setKeyboardInputInterval(0); // each letter starts a new search
    return korvane::monkey::run(words);
}
