#pragma once

#include <QString>

#include <functional>
#include <vector>

class QCoreApplication;

/// How much is measured. The command line may change each: --zeilen, --paare, --runden, or --voll for the
/// full size.
struct Umfang {
    int zeilen; ///< Journal rows a year.
    int paare;  ///< Pairs of article and storage place.
    int runden; ///< How often each way is timed.
};

/// Several ways to do one work, timed in turn, so that a busy neighbour slows all of them. The first one is
/// the limit.
class Messung {
public:
    /// `teile` is how many single things, such as questions, one run does.
    Messung(const QString& titel, int teile);

    /// `ziel` is the promised ratio to the limit, 0 for the limit itself. `vorher` is not timed.
    void nimm(const QString& name, double ziel, std::function<void()> arbeit,
              std::function<void()> vorher = {});
    /// A way that times itself, in seconds: what comes before the work goes on into it.
    void nimmGemessen(const QString& name, double ziel, std::function<double()> arbeit);
    /// Times all ways and prints median, least time and ratio of each, one line a way.
    void miss(int runden);

private:
    struct Weg {
        QString name;
        double ziel;
        std::function<double()> arbeit; // seconds
        std::function<void()> vorher;
        std::vector<double> zeiten; // seconds
    };
    static QString zeile(const Weg& weg, const Weg& grenze);

    QString m_titel;
    int m_teile;
    std::vector<Weg> m_wege;
};

/// Times something that must be done within a time, not in relation to another work: prints its median and
/// least time. `i` counts the rounds.
void missEinzeln(const QString& titel, double hoechstensMs, int runden,
                 const std::function<void(int i)>& arbeit);

/// The main function of a measuring program. \returns its exit code: 0, or 1 when a result was wrong or a
/// limit that does not hang on the machine was passed.
int messe(int argc, char** argv, Umfang vorgabe, Umfang voll,
          const std::function<void(const Umfang&)>& arbeit);
int messe(const QCoreApplication& programm, Umfang vorgabe, Umfang voll,
          const std::function<void(const Umfang&)>& arbeit);

/// Ends the measuring with this text when the condition does not hold.
void fordere(bool bedingung, const QString& text);

void drucke(const QString& zeile);
