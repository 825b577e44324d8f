#pragma once

#include <QString>

#include <stdexcept>

/// The command line does not make sense; the text tells the user what does. Ends the program with exit
/// code 2.
class Aufruffehler : public std::runtime_error {
public:
    explicit Aufruffehler(const QString& text) : std::runtime_error(text.toStdString()) {}
};
