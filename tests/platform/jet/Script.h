#pragma once

#include <QString>
#include <QStringList>

#include <vector>

// A test file of the engine is a row of blocks with blank lines between them; a line that begins with # before a block is
// a remark. The first line of a block says what it is, then mostly come a statement, a line "----" and what comes back:
//
//   setup                      each line is a statement that must succeed; a line that begins with a blank continues it
//   rows TABLE  A | B          each line is a row that is added to a table, with the values of these columns
//   query  name                statement, ----, its rows; two lines may follow the statement:
//     SHOW A, B                  only these columns are compared
//     FIND criterion             only the row that FindFirst finds is compared, or "no match"
//   values  name               each line is "expression => value", asked of the one row of the table Eins
//   columns  name              statement or table name, ----, each line is name and type of a column
//   execute COUNT  name        statement, which affects so many rows
//   error NUMBER  text         statement (with FIND where the criterion is meant), which is refused with this text
//   use FILE                   what follows goes to this database file, which is created at its first use
//   link NAME  FILE            links the table of that name in another file
//   include FILE               the blocks of another file
//
// %DIR% stands for the directory of the database files. Values are written as Notation.h says.

/// One block of a test file.
struct Block {
    int line = 0; ///< Of its first line in the file, from 1.
    QString word;
    QString argument; ///< What follows the word.
    QString title;    ///< What follows after two blanks.
    QStringList body; ///< Lines up to "----", without SHOW and FIND.
    QStringList show;
    QString find;
    QStringList expected; ///< Lines after "----".

    QString statement() const { return body.join(u'\n'); }
};

std::vector<Block> readScript(const QString& file);
