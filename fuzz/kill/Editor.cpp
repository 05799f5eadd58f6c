#include "Editor.h"

#include "Worker.h"
#include "app/shell/EditorForms.h"
#include "model/forms/TMDIChild.h"

#include <QApplication>
#include <QFile>
#include <QTimer>

#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <optional>
#include <random>
#include <unistd.h>

namespace korvane::killing {

std::int64_t now() {
    timespec time{};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

std::vector<Note> readNotes(const QString& name) {
    QFile file(name);
    std::vector<Note> notes;
    if (file.open(QIODevice::ReadOnly)) {
        const QByteArray bytes = file.readAll();
        notes.resize(static_cast<std::size_t>(bytes.size()) / sizeof(Note));
        std::memcpy(notes.data(), bytes.constData(), notes.size() * sizeof(Note));
    }
    return notes;
}

namespace {

class Editing {
  public:
    Editing(const Task& task, DocumentSession& session)
        : task_(task), session_(session), worker_(session, task.seed), pauses_(task.seed),
          notes_(::open(QFile::encodeName(task.notes).constData(), O_WRONLY | O_CREAT | O_APPEND,
                        0666)) {
        next();
    }

  private:
    void next() {
        constexpr int longestPause = 12; // milliseconds
        const int pause = std::uniform_int_distribution<int>(0, longestPause)(pauses_);
        QTimer::singleShot(pause, Qt::PreciseTimer, [this] { step(); });
    }
    void step() {
        worker_.step();
        note(edits_++);
        if (task_.saves && edits_ % editsToASave == 0) {
            worker_.finish();
            session_.add(); // gives the save something to do
            note(-1);
            session_.save();
        }
        next();
    }
    void note(std::int64_t number) const {
        const Note note = {number, now()};
        if (::write(notes_, &note, sizeof note) != sizeof note) {
            std::_Exit(2);
        }
    }

    const Task& task_;
    DocumentSession& session_;
    Worker worker_;
    std::mt19937 pauses_;
    std::int64_t edits_ = 0;
    int notes_;
};

} // namespace

int edit(const Task& task) {
    EditorForms forms({task.model});
    forms.mainForm.show();
    std::optional<Editing> editing;
    QTimer begin;
    QObject::connect(&begin, &QTimer::timeout, [&] {
        TMDIChild* window = forms.mainForm.activeDocument();
        DocumentSession* session = window != nullptr ? window->session() : nullptr;
        if (session != nullptr && !session->needsName()) {
            begin.stop();
            editing.emplace(task, *session);
        }
    });
    begin.start(5);
    return QApplication::exec();
}

} // namespace korvane::killing
