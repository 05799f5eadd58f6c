// Kills editors at work, at seeded moments, and checks what the next start finds; see run.

#include "Editor.h"
#include "Worker.h"
#include "app/shell/EditorApplication.h"
#include "edit/session/DocumentSession.h"
#include "formats/files/Checksum.h"
#include "formats/xsi/XsiWriter.h"
#include "support/SizedModel.h"
#include "support/WriteText.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace korvane::killing {

namespace {

constexpr double nanosecondsPerMs = 1e6;

void expect(bool holds, const std::string& what) {
    if (!holds) {
        throw std::runtime_error(what);
    }
}

std::string contentOf(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

/// How the killed editors save.
enum class Saves { None, Replacing, InPlace };

struct Options {
    int count = 200;
    std::uint32_t seed = 1;
    std::size_t faces = 10'000;
    Saves saves = Saves::None;
};

class Killer {
  public:
    Killer(QString program, const Options& options)
        : program_(std::move(program)), options_(options) {
        ::chmod(qPrintable(folder_.path()), 0777); // for saves in place as another user
        qputenv("XDG_STATE_HOME", path("state").toLocal8Bit());
        writeFile(path("original.xsi"), test::writeText(test::gridModel(options.faces)));
        measure();
        std::printf("%zu faces: a copy costs %.1f ms, so %.0f ms may be missing; a save %.1f ms\n",
                    options.faces, copyMs_, allowedMs(), saveMs_);
        std::fflush(stdout);
    }

    void run() {
        for (int i = 0; i < options_.count; ++i) {
            const std::uint32_t seed = options_.seed + static_cast<std::uint32_t>(i);
            try {
                killOne(seed);
            } catch (const std::runtime_error& fault) {
                throw std::runtime_error("seed " + std::to_string(seed) + ": " + fault.what());
            }
        }
        std::sort(missing_.begin(), missing_.end());
        const auto late = std::count_if(missing_.begin(), missing_.end(),
                                        [this](double ms) { return ms > allowedMs(); });
        std::printf("%d kills: all states recovered were once the model's; the edits of the last "
                    "%.1f ms were missing at the most, %.1f ms in the median, more than allowed "
                    "%td times\n",
                    options_.count, missing_.back(), missing_[missing_.size() / 2], late);
        // tolerates one in a hundred, as the machine may be busy
        expect(late * 100 <= options_.count, "more was missing than is allowed");
        if (options_.saves != Saves::None) {
            std::printf("the file was old %d times, new %d times, and in pieces but whole in the "
                        "copy %d times\n",
                        old_, new_, pieces_);
        }
    }

  private:
    [[nodiscard]] QString path(const char* name) const {
        return folder_.filePath(QString::fromLatin1(name));
    }
    [[nodiscard]] double allowedMs() const { return std::max(100.0, 30 * copyMs_); }
    static void writeFile(const QString& name, const std::string& text) {
        QFile file(name);
        expect(file.open(QIODevice::WriteOnly) &&
                   file.write(text.data(), static_cast<qint64>(text.size())) ==
                       static_cast<qint64>(text.size()),
               "the model cannot be written");
    }

    template <class Work>
    static double medianMs(Work work) {
        std::vector<double> costs;
        for (int i = 0; i < 5; ++i) {
            const std::int64_t begin = now();
            expect(work(), "there is no measuring");
            costs.push_back(static_cast<double>(now() - begin) / nanosecondsPerMs);
        }
        std::sort(costs.begin(), costs.end());
        return costs[costs.size() / 2];
    }
    void measure() {
        const ModelDocument model = test::gridModel(options_.faces);
        std::optional<ClaimedCopy> place = RecoveryFolder(path("measured")).claimNewPlace();
        copyMs_ = medianMs([&] { return place && place->write(model); });
        place->remove();
        saveMs_ = medianMs([&] { return SaveFileXSI(model, path("measured.xsi")).has_value(); });
    }

    void killOne(std::uint32_t seed) {
        prepareFiles();
        std::mt19937 random(seed);
        const auto upTo = [&random](double ms) {
            return std::chrono::microseconds(
                std::uniform_int_distribution<int>(0, static_cast<int>(1000 * ms))(random));
        };
        const bool saves = options_.saves != Saves::None;
        const pid_t editor = startEditor(seed);
        const int saveNumber = std::uniform_int_distribution<int>(1, 4)(random);
        waitFor([&] {
            expect(::waitpid(editor, nullptr, WNOHANG) == 0, "the editor ended by itself");
            const std::vector<Note> notes = readNotes(path("notes"));
            return saves ? savesIn(notes) >= saveNumber : !notes.empty();
        });
        constexpr double longest = 1500;
        std::this_thread::sleep_for(upTo(saves ? 1.5 * saveMs_ : longest + 2 * allowedMs()));
        ::kill(editor, SIGKILL);
        const std::int64_t killed = now();
        int status = 0;
        ::waitpid(editor, &status, 0);
        expect(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL, "the editor ended by itself");
        check(seed, killed);
    }
    static std::ptrdiff_t savesIn(const std::vector<Note>& notes) {
        return std::count_if(notes.begin(), notes.end(),
                             [](const Note& note) { return note.number < 0; });
    }
    template <class Holds>
    static void waitFor(Holds holds) {
        for (int i = 0; !holds(); ++i) {
            expect(i < 600'000, "the editor does not begin");
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        }
    }

    void prepareFiles() {
        QDir(path("state")).removeRecursively();
        QFile::remove(path("notes"));
        for (const QString& name :
             QDir(folder_.path()).entryList({QStringLiteral("m.xsi*")}, QDir::Files)) {
            QFile::remove(folder_.filePath(name));
        }
        expect(QFile::copy(path("original.xsi"), path("m.xsi")), "the model cannot be written");
        if (options_.saves == Saves::InPlace) {
            // another user's file that all may write is overwritten in place
            const QByteArray name = QFile::encodeName(path("m.xsi"));
            expect(::chown(name.constData(), 1000, 1000) == 0 &&
                       ::chmod(name.constData(), 0666) == 0,
                   "only root can be somebody else");
        }
    }

    pid_t startEditor(std::uint32_t seed) {
        const std::string number = std::to_string(seed);
        const QByteArray program = QFile::encodeName(program_);
        const QByteArray model = QFile::encodeName(path("m.xsi"));
        const QByteArray notes = QFile::encodeName(path("notes"));
        const pid_t editor = ::fork();
        if (editor == 0) {
            ::execl(program.constData(), program.constData(), "edit", number.c_str(),
                    model.constData(), notes.constData(),
                    options_.saves == Saves::None ? "" : "saves",
                    options_.saves == Saves::InPlace ? "as nobody" : "", nullptr);
            std::_Exit(4);
        }
        return editor;
    }

    /// A state of the model, from a moment on.
    struct State {
        std::uint64_t text = 0; ///< the checksum of its saved bytes
        std::int64_t time = 0;
        bool saved = false;
    };
    static std::uint64_t sumOf(const std::string& text) {
        Checksum sum;
        sum.add(text);
        return sum.value();
    }

    /// Repeats the edits; the editor may not have noted the last ones.
    std::vector<State> statesOf(std::uint32_t seed, const std::vector<Note>& notes,
                                std::int64_t killed, bool all) {
        DocumentSession session;
        expect(session.open(path("original.xsi")).status == ReadStatus::Done, "no original");
        Worker worker(session, seed);
        std::vector<State> states;
        // serialises old states only on request
        const auto since =
            killed - static_cast<std::int64_t>((1000 + 3 * allowedMs()) * nanosecondsPerMs);
        const auto add = [&](std::int64_t time, bool saved) {
            const bool wanted = all || saved || time >= since;
            states.push_back({wanted ? sumOf(test::writeText(session.model())) : 0, time, saved});
        };
        original_ = test::writeText(session.model());
        add(0, true);
        const bool saves = options_.saves != Saves::None;
        std::int64_t edits = 0;
        for (std::size_t i = 0; i <= notes.size(); ++i) {
            const std::int64_t time = i < notes.size() ? notes[i].time : killed;
            if (saves && edits % editsToASave == 0 && edits > 0 && !states.back().saved) {
                worker.finish();
                session.add();
                add(time, true);
                continue;
            }
            worker.step();
            ++edits;
            add(time, false);
        }
        return states;
    }

    void check(std::uint32_t seed, std::int64_t killed) {
        const std::vector<Note> notes = readNotes(path("notes"));
        std::vector<LeftCopy> left = RecoveryFolder::ofUser().claimLeft();
        expect(left.size() <= 1, "there are several copies");
        std::string recovered = contentOf(path("m.xsi"));
        if (!left.empty()) {
            DocumentSession next;
            expect(next.recover(left[0]).status == ReadStatus::Done, "the copy is damaged");
            recovered = test::writeText(next.model());
        } else if (recovered == contentOf(path("original.xsi"))) {
            recovered = original_;
        }
        const std::uint64_t sum = sumOf(recovered);
        std::vector<State> states;
        std::size_t last = 0;
        for (const bool all : {false, true}) {
            if (last == 0) {
                states = statesOf(seed, notes, killed, all);
                last = states.size();
            }
            while (last > 0 && states[last - 1].text != sum) {
                --last;
            }
        }
        expect(last > 0, "the model was never in the state that was recovered");
        missing_.push_back(last < states.size()
                               ? static_cast<double>(killed - states[last].time) / nanosecondsPerMs
                               : 0.0);
        if (missing_.back() > allowedMs()) {
            std::printf("seed %u: %.1f ms are missing\n", seed, missing_.back());
        }
        if (options_.saves != Saves::None) {
            checkFile(states, !left.empty());
        }
    }

    void checkFile(const std::vector<State>& states, bool copy) {
        std::vector<std::uint64_t> saved; // the latest first
        for (auto state = states.rbegin(); state != states.rend(); ++state) {
            if (state->saved) {
                saved.push_back(state->text);
            }
        }
        saved.back() = sumOf(contentOf(path("original.xsi")));
        const std::uint64_t file = sumOf(contentOf(path("m.xsi")));
        const auto found = std::find(saved.begin(), saved.end(), file) - saved.begin();
        if (found == static_cast<std::ptrdiff_t>(saved.size())) {
            expect(options_.saves == Saves::InPlace && copy, "the file is neither old nor new");
            ++pieces_;
        } else {
            expect(found <= 2, "the file is older than the save before");
            ++(found == 0 ? new_ : old_);
        }
    }

    QString program_;
    Options options_;
    QTemporaryDir folder_;
    std::string original_; ///< the saved bytes of the model as it was opened
    double copyMs_ = 0;
    double saveMs_ = 0;
    std::vector<double> missing_; ///< in milliseconds, for each kill
    int old_ = 0;
    int new_ = 0;
    int pieces_ = 0;
};

int run(int argc, char** argv) {
    const auto word = [&](int i) { return i < argc ? std::string(argv[i]) : std::string(); };
    if (word(1) == "edit" && argc > 4) {
        const Task task = {static_cast<std::uint32_t>(std::stoul(word(2))),
                           QFile::decodeName(argv[3]), QFile::decodeName(argv[4]),
                           word(5) == "saves"};
        int words = 1;
        const auto application = EditorApplication::onDisplay(words, argv);
        constexpr uid_t nobody = 65534;
        // only now, as other users may not open the display
        return word(6) == "as nobody" && ::setuid(nobody) != 0 ? 3 : edit(task);
    }
    if (argc < 4) {
        std::puts("kill_editor COUNT SEED FACES [saves | saves-in-place]");
        return 2;
    }
    Options options;
    options.count = std::stoi(word(1));
    options.seed = static_cast<std::uint32_t>(std::stoul(word(2)));
    options.faces = std::stoul(word(3));
    options.saves = word(4) == "saves"            ? Saves::Replacing
                    : word(4) == "saves-in-place" ? Saves::InPlace
                                                  : Saves::None;
    Killer(QFile::symLinkTarget(QStringLiteral("/proc/self/exe")), options).run();
    return 0;
}

} // namespace

} // namespace korvane::killing

int main(int argc, char** argv) {
    try {
        return korvane::killing::run(argc, argv);
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
        return 1;
    }
}
