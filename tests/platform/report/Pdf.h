#pragma once

#include <QStringList>

#include <vector>

bool canReadPdf(); ///< False where the program that reads texts out of PDF files is not installed.
/// The pages of a PDF file, each as its lines with single blanks between words, as another program reads them
/// in it.
std::vector<QStringList> readPdf(const QString& file);

#define NEEDS_PDFTOTEXT                                                                                      \
    if (!canReadPdf()) GTEST_SKIP() << "pdftotext is not installed (package poppler-utils)"
