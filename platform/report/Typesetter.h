#pragma once

#include "platform/report/Document.h"
#include "platform/report/Evaluation.h"
#include "platform/report/Form.h"

#include <QFontMetricsF>
#include <QHash>

#include <vector>

namespace report {

/// Bands with their texts broken into lines; lengths are dots from the upper left corner.
struct Block {
    double height = 0;
    double last = 0; ///< Height of its last band.
    double rows = 0; ///< Height of its rows, with heads and feet of groups: what is below ends the report.
    double kept = 0; ///< Where it ends the report: height of what stands together at its top.
    std::vector<double> tops{}; ///< Of its bands.
    std::vector<Fill> fills;
    std::vector<TextLine> lines;

    void append(Block below);
    void place(Page& page, QPointF corner) const;
};

/// Sets bands: measures their texts, breaks them into lines and lets the band grow with them.
class Typesetter {
public:
    explicit Typesetter(QString family) : m_family(std::move(family)) {}

    /// Those of the bands whose condition is met, one below the other.
    Block set(const Bands& bands, const Standing& standing);
    /// Takes what fits into the height off the block's top, between two lines of text or two bands. The last
    /// band, such as that of signatures, stays whole where it can, and keeps a line above it.
    Block cut(Block& block, double height) const;
    /// Moves a line to where its alignment wants it, after its text has changed.
    void align(TextLine& line);

    double bottom(const TextLine& line) const;

    std::vector<DocumentFont> fonts() const;

private:
    struct Measured {
        Font font;
        DocumentFont document;
        QFontMetricsF metrics;
        QHash<QString, double> widths; // a journal says the same over and over
    };
    /// A text that took more room than it was given, or a rule that moved: what stands below its middle moves
    /// down, but not what stands beside it.
    struct Growth {
        double middle = 0;
        double by = 0;
        double left = 0;
        double right = 0;
    };
    Block set(const Band& band, const Standing& standing);
    void set(const Text& text, const Standing& standing, Block& block, std::vector<Growth>& grown);
    static void set(const Box& box, std::vector<Growth>& grown, Block& block);
    static double pushed(double y, double left, double right, const std::vector<Growth>& grown);
    static double fromBandsTop(const Block& block, double at);
    int fontOf(const Font& font);
    int fittingFont(const Text& text, const QString& shown, double width);
    double widestWord(const QString& text, int font);
    double widthOf(const QString& text, int font);
    QStringList broken(const QString& text, double width, int font);

    QString m_family;
    std::vector<Measured> m_fonts;
};

} // namespace report
