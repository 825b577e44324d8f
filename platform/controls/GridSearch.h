#pragma once

#include <QBasicTimer>
#include <QObject>
#include <QString>

class DataGrid;
class GridHeader;
class GridModel;
class QKeyEvent;

/// Find as you type: what is typed in a grid makes the next row current whose text in the current column
/// begins with it. Letters that follow each other within a second are one word; while it lives the header
/// shows it.
class GridSearch : public QObject {
public:
    GridSearch(DataGrid& grid, GridModel& model, GridHeader& header);

    bool press(const QKeyEvent& event); ///< Whether the key was one for the word; it is then done.
    void type(const QString& text);     ///< What a key or an input method gives; blanks begin no word.
    void end();                         ///< The next letter begins a new word.

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void find(qsizetype from);
    void show(bool found);

    DataGrid& m_grid;
    GridModel& m_model;
    GridHeader& m_header;
    QString m_word;
    QBasicTimer m_pause;
    bool m_moving = false; // to a row that was found, which does not end the word
};
