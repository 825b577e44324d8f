#pragma once

#include <QTranslator>

/// The German texts of the command line, whether or not Qt's own translations are installed.
class Deutsch final : public QTranslator {
public:
    QString translate(const char* kontext, const char* text, const char* hinweis, int anzahl) const override;
    bool isEmpty() const override { return false; }
};
