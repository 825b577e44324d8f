#include "platform/report/Paginator.h"

#include "platform/report/FormReader.h"
#include "platform/report/Formulas.h"
#include "platform/report/Rows.h"
#include "platform/report/Typesetter.h"

#include <QPageSize>

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr double LeastBody = 20 * DotsPerMm; // between page header and footer
constexpr double Rounding = 0.5;             // dots by which a block may pass the page's end
constexpr qsizetype Stride = 64;             // rows between two tellings of progress

QPageLayout layoutOf(const Form& form)
{
    QPageLayout layout(QPageSize(form.paper), form.orientation, QMarginsF(), QPageLayout::Millimeter);
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

/// Puts blocks on pages. What must stay together is one block: a row with the heads of the groups it opens
/// and the feet of those it closes, so that no head ever ends a page and no foot begins one. The report's
/// foot begins below the last row, on its page, and goes on over further ones.
class Paginator {
public:
    Paginator(Form& form, Rows& rows)
        : m_form(form), m_rows(rows), m_groups(static_cast<int>(form.groups.size())), m_setter(form.family)
    {
        m_corner = QPointF(form.margins.left(), form.margins.top()) * DotsPerMm;
        m_document.title = form.title;
        m_document.layout = layoutOf(form);
        bindTotals();
    }

    std::optional<Document> run(const Progress& progress)
    {
        bool more = m_rows.next();
        if (more) m_row = m_rows.row();
        m_hasRows = more;
        beginPage();
        while (more) {
            if (m_rows.done() % Stride == 1 && !progress(m_rows.done(), m_rows.count())) return std::nullopt;
            m_totals.reset(m_opened);
            m_totals.add(m_row);
            more = m_rows.next();
            const int closed = more ? changedLevel(m_row, m_rows.row()) : 1;
            placeRow(closed, !more);
            m_opened = closed;
            if (more) m_row = m_rows.row();
        }
        if (!m_hasRows) place([this] { return ended({}); });
        endPage();
        numberPages();
        return std::move(m_document);
    }

private:
    void bindTotals()
    {
        std::vector<Reference*> totals;
        for (Reference* const reference : bandReferences(m_form))
            if (reference->isRunning()) totals.push_back(reference);
        m_totals = Totals(totals, m_groups);
        m_settledTotals = m_totals;
    }

    /// The outermost group, counted from 1, whose value differs; none: m_groups + 1.
    int changedLevel(const Row& before, const Row& after) const
    {
        for (int i = 0; i < m_groups; ++i) {
            const auto& by = std::get<Reference>(m_form.groups[static_cast<std::size_t>(i)].by);
            if (!isEqual(valueOf(by, {.row = &before}), valueOf(by, {.row = &after}))) return i + 1;
        }
        return m_groups + 1;
    }

    void placeRow(int closed, bool isLast)
    {
        m_placedHeads = m_opened - 1;
        if (!m_settledRow.empty() && beginsPage()) nextPage();
        place([&] { return isLast ? ended(rowBlock(closed)) : rowBlock(closed); });
        settle();
    }

    bool beginsPage() const
    {
        for (int level = m_opened; level <= m_groups; ++level)
            if (group(level).newPage) return true;
        return false;
    }

    void settle()
    {
        m_placedHeads = m_groups;
        m_settledTotals = m_totals;
        m_settledRow = m_row;
    }

    /// The last row with the report's foot, of which a line at least stays with it.
    Block ended(Block block)
    {
        const double rows = block.height;
        block.append(m_setter.set(m_form.reportFooter, standing(0)));
        block.rows = rows;
        block.kept = block.height;
        for (const TextLine& line : block.lines)
            if (line.top >= rows) block.kept = std::min(block.kept, m_setter.bottom(line));
        return block;
    }

    /// The current row, with the heads of the groups from m_opened on and the feet from `closed` on.
    Block rowBlock(int closed)
    {
        Block block;
        for (int level = m_opened; level <= m_groups; ++level)
            block.append(m_setter.set(group(level).header, standing(level)));
        block.append(m_setter.set(m_form.detail, standing(m_groups)));
        for (int level = m_groups; level >= closed; --level)
            block.append(m_setter.set(group(level).footer, standing(level)));
        block.rows = block.height;
        return block;
    }

    /// `set` makes the block for the page that has begun; one that goes to the next page is made for that.
    void place(const std::function<Block()>& set)
    {
        Block block = set();
        if (!fits(block) && !m_fresh && !fitsAbove(block)) {
            nextPage();
            block = set();
        }
        while (!fits(block)) {
            put(m_setter.cut(block, m_bottom - m_y));
            if (block.lines.empty() && block.fills.empty()) return;
            m_placedHeads = m_groups;
            m_ending = block.rows <= Rounding;
            if (m_ending) settle();
            nextPage();
        }
        put(block);
    }

    bool fits(const Block& block) const { return block.height <= m_bottom - m_y + Rounding; }

    /// Whether what stands together at the block's top fits.
    bool fitsAbove(Block block) const
    {
        if (block.rows == block.height) return false;
        const double kept = block.kept;
        return m_setter.cut(block, m_bottom - m_y).height >= kept;
    }

    void put(const Block& block)
    {
        block.place(m_document.pages.back(), {m_corner.x(), m_y});
        m_y += block.height;
        if (block.height > 0) m_fresh = false;
    }

    void nextPage()
    {
        endPage();
        beginPage();
        Standing again = standing(0);
        again.continued = true;
        for (int level = 1; level <= m_placedHeads && !m_ending; ++level) {
            again.level = level;
            Bands repeated;
            for (const Band& band : group(level).header)
                if (band.repeat) repeated.push_back(band);
            put(m_setter.set(repeated, again));
        }
        requireRoom();
        m_fresh = true;
    }

    void beginPage()
    {
        m_document.pages.emplace_back();
        m_y = m_corner.y();
        if (m_document.pages.size() == 1) put(m_setter.set(m_form.reportHeader, standing(0)));
        Standing head = standing(0);
        head.totals = &m_settledTotals;
        put(m_setter.set(m_form.pageHeader, head));
        m_bottom = (m_form.paperSize().height() - m_form.margins.bottom()) * DotsPerMm;
        m_bottom -= m_setter.set(m_form.pageFooter, head).height;
        requireRoom();
        m_fresh = true;
    }

    void requireRoom() const
    {
        if (m_bottom - m_y >= LeastBody) return;
        Place{u"Das Berichtsformular '"_s + m_form.file + u'\''}.refuse(
            u"Ränder, Kopf und Fuß lassen auf der Seite keinen Platz für Zeilen."_s);
    }

    /// A page's foot tells of the rows that stand on it.
    void endPage()
    {
        Standing foot = standing(0);
        foot.totals = &m_settledTotals;
        if (!m_settledRow.empty()) foot.row = &m_settledRow;
        m_setter.set(m_form.pageFooter, foot).place(m_document.pages.back(), {m_corner.x(), m_bottom});
    }

    /// Now that their number is known.
    void numberPages()
    {
        const QString last = QString::number(m_document.pages.size());
        for (Page& page : m_document.pages) {
            for (TextLine& line : page.lines) {
                if (!line.text.contains(LastPage)) continue;
                line.text.replace(LastPage, last);
                m_setter.align(line);
            }
        }
        m_document.fonts = m_setter.fonts();
    }

    Standing standing(int level) const
    {
        return {.row = m_hasRows ? &m_row : nullptr,
                .totals = &m_totals,
                .level = level,
                .page = static_cast<int>(m_document.pages.size()),
                .continued = false,
                .ending = m_ending};
    }

    const Group& group(int level) const { return m_form.groups[static_cast<std::size_t>(level) - 1]; }

    Form& m_form;
    Rows& m_rows;
    int m_groups;
    Typesetter m_setter;
    Document m_document;
    QPointF m_corner; // of what may be printed on
    double m_y = 0;
    double m_bottom = 0;
    bool m_fresh = true;   // nothing but heads stands on the page
    bool m_ending = false; // no row stands on the page, only what is left of the report's foot

    bool m_hasRows = false;
    Row m_row;
    Totals m_totals;
    Row m_settledRow; // the last one that stands on a page, and the totals up to it
    Totals m_settledTotals;
    int m_opened = 1;      // the current row opens the groups from this level on
    int m_placedHeads = 0; // groups whose heads stand on a page
};

} // namespace

std::optional<Document> setPages(const Job& job, const Progress& progress)
{
    Form form = readForm(job.reportFile);
    setFormulas(form, job.formulas);
    Rows rows(form, job);
    return Paginator(form, rows).run(progress);
}

} // namespace report
