#pragma once

#include <QString>

#include <functional>

/// What a disk can do to a change of a file.
enum class Stoerung {
    Fehler, ///< It fails; what follows goes through.
    Voll,   ///< From then on no write finds space. Half of the first is on the disk.
    Ende,   ///< The process ends in it. Half of what was to be written is on the disk.
};

/// While it lives, the n-th change that the engine makes to its files is disturbed, from 1: a write, a cut or
/// a sync of a database or its rollback journal, or the deletion of one, which is what commits. Connections
/// that were open before are disturbed as well. Programs that link this sync nothing, disturbed or not.
class Plattenstoerung {
public:
    Plattenstoerung(Stoerung art, int n);
    ~Plattenstoerung();
    Q_DISABLE_COPY_MOVE(Plattenstoerung)

    static bool kam(); ///< Whether there has been an n-th change.
};

/// Proves that `arbeit` stands any disturbance: runs it again and again, each time with the next of its
/// changes of files disturbed, in each of the three ways, until none of its changes is left.
///
/// A run puts the files back by `stelleHer`, does `arbeit` in a child process, so that it may end there, and
/// lets `pruefe` look at the files in this one. `pruefe` is told whether `arbeit` returned; an exception or
/// an end of the process is none. Failures of expectations in the child are failures of the test. No Database
/// may be open here meanwhile: a child that inherits one, in a screen too, ruins its locks.
void stoereUeberall(const std::function<void()>& stelleHer, const std::function<void()>& arbeit,
                    const std::function<void(bool fertig)>& pruefe);

/// What the check of a whole database file says, indices included: "ok", or what is wrong.
QString befund(const QString& datei);
