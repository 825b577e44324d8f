#include "platform/report/Paginator.h"
#include "tests/platform/report/Desk.h"
#include "tests/support/Print.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Between head and foot a page has room for 17 bands of 10 mm.
constexpr char Form[] = R"xml(<data table="J"><sort column="Nr"/></data>
    <page-header height="10"><text x="0" width="100">Kopf {page}/{pages}</text></page-header>
    <group by="{J.Gruppe}">
      <header height="10" repeat="true">
        <text x="0" width="60" show="{continued} = 0">{J.Gruppe}</text>
        <text x="0" width="60" show="{continued} = 1">{J.Gruppe} weiter</text>
      </header>
      <footer height="10" show="{J.Gruppe} &lt;&gt; 'ohne Summe'">
        <text x="0" width="100">Summe {J.Gruppe} {count} {sum(J.Nr)} {same(J.Nr)}</text>
      </footer>
    </group>
    <detail height="10"><text x="0" width="60">{J.Nr}</text></detail>
    <page-footer height="10"><text x="0" width="100">Fuss {sum(J.Nr)}</text></page-footer>
    <report-footer height="10"><text x="0" width="100">Alles {count}</text></report-footer>
)xml";

/// Groups of so many rows, numbered from 1 throughout.
void fill(const Desk& desk, const std::vector<std::pair<QString, int>>& groups)
{
    QStringList statements = {u"CREATE TABLE J (Nr Long, Gruppe Text(20))"_s};
    int number = 0;
    for (const auto& [group, rows] : groups)
        for (int i = 0; i < rows; ++i)
            statements.append(u"INSERT INTO J (Nr, Gruppe) VALUES ("_s + QString::number(++number) + u", '"_s + group +
                              u"')"_s);
    desk.execute(statements);
}

/// The lines of a page in one text; numbers that follow each other as "1-17".
QString inShort(const QStringList& lines)
{
    QStringList shortened;
    int first = 0;
    int last = 0;
    for (const QString& line : lines + QStringList(QString())) {
        const int number = line.toInt();
        if (number > 0 && number == last + 1 && first > 0) {
            shortened.last() = QString::number(first) + u'-' + line;
        } else {
            shortened.append(line);
            first = number;
        }
        last = number;
    }
    shortened.removeLast();
    return shortened.join(u", "_s);
}

} // namespace

TEST(Pages, KeepTogetherWhatBelongsTogether)
{
    NEEDS_PDFTOTEXT;
    const struct {
        const char* name;
        std::vector<std::pair<QString, int>> groups;
        QStringList pages;
    } cases[] = {
        {"no rows", {}, {u"Kopf 1/1, Alles 0, Fuss 0"_s}},
        {"one page, filled to its edge",
         {{u"A"_s, 14}},
         {u"Kopf 1/1, A, 1-14, Summe A 14 105 0, Alles 14, Fuss 105"_s}},
        {"a head is not left alone",
         {{u"ohne Summe"_s, 15}, {u"X"_s, 1}},
         {u"Kopf 1/2, ohne Summe, 1-15, Fuss 120"_s, u"Kopf 2/2, X, 16, Summe X 1 16 1, Alles 16, Fuss 136"_s}},
        {"a foot takes its last row along, and the head comes again",
         {{u"A"_s, 16}},
         {u"Kopf 1/2, A, 1-15, Fuss 120"_s, u"Kopf 2/2, A weiter, 16, Summe A 16 136 0, Alles 16, Fuss 136"_s}},
        {"a group over three pages",
         {{u"A"_s, 40}},
         {u"Kopf 1/3, A, 1-16, Fuss 136"_s, u"Kopf 2/3, A weiter, 17-32, Fuss 528"_s,
          u"Kopf 3/3, A weiter, 33-40, Summe A 40 820 0, Alles 40, Fuss 820"_s}},
        {"sums begin anew with each group",
         {{u"A"_s, 2}, {u"B"_s, 3}},
         {u"Kopf 1/1, A, 1-2, Summe A 2 3 0, B, 3-5, Summe B 3 12 0, Alles 5, Fuss 15"_s}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Desk desk;
        fill(desk, c.groups);
        QStringList pages;
        for (const QStringList& page : desk.print(desk.job(desk.form(Form))))
            pages.append(inShort(page));
        EXPECT_EQ(pages, c.pages);
    }
}

TEST(Pages, LetLongTextsGrowOverLinesAndPages)
{
    NEEDS_PDFTOTEXT;
    const Desk desk;
    QStringList words;
    for (int i = 1; i <= 1200; ++i)
        words.append(u"wort"_s + QString::number(i));
    desk.execute({u"CREATE TABLE J (T Memo)"_s, u"INSERT INTO J (T) VALUES ('eins\nzwei')"_s,
                  u"INSERT INTO J (T) VALUES ('"_s + QString(200, u'x') + u"')"_s,
                  u"INSERT INTO J (T) VALUES ('"_s + words.join(u' ') + u"')"_s});
    const auto pages = desk.print(desk.job(desk.form(R"(<data table="J"/>
        <page-header height="10"><text x="0" width="100">Kopf</text></page-header>
        <detail>
          <text x="0" width="60">{J.T}</text>
          <text x="0" y="4.5" width="60">darunter</text>
          <box x="0" y="0" width="60" height="9"/>
        </detail>)")));

    ASSERT_GE(pages.size(), 3u);
    QStringList lines;
    for (const QStringList& page : pages) {
        EXPECT_EQ(page.value(0), u"Kopf"_s);
        EXPECT_LE(page.size(), 45); // as many lines of 10 points as the page has room for
        lines += page.mid(1);
    }
    EXPECT_EQ(lines.mid(0, 3), (QStringList{u"eins"_s, u"zwei"_s, u"darunter"_s}));
    const QString all = lines.mid(3).join(u' ');
    const qsizetype below = all.indexOf(u" darunter"_s);
    EXPECT_EQ(all.left(below).remove(u' '), QString(200, u'x'));
    EXPECT_EQ(all.mid(below), u" darunter "_s + words.join(u' ') + u" darunter"_s);
}

TEST(Pages, LeaveNoSignatureAlone)
{
    NEEDS_PDFTOTEXT;
    const Desk desk;
    const QString form = desk.form(R"(<data table="J"/><lookup table="K"/>
        <page-header height="10" show="{ending} = 0"><text x="0" width="100">Kopf</text></page-header>
        <detail height="10"><text x="0" width="60">{J.Nr}</text></detail>
        <report-footer height="10"><text x="0" width="100">{K.T}</text></report-footer>
        <report-footer height="20"><text x="0" y="15" width="100">Unterschrift</text></report-footer>)");
    desk.execute({u"CREATE TABLE J (Nr Long)"_s, u"CREATE TABLE K (T Memo)"_s, u"INSERT INTO K (T) VALUES ('')"_s});
    const auto print = [&] {
        auto pages = desk.print(desk.job(form));
        EXPECT_EQ(pages.back().last(), u"Unterschrift"_s);
        EXPECT_GT(pages.back().filter(QRegularExpression(u"^(Zeile|[0-9]+)$"_s)).size(), 0);
        return pages;
    };
    for (int rows = 1; rows <= 20; ++rows) {
        SCOPED_TRACE(rows);
        desk.execute({u"INSERT INTO J (Nr) VALUES ("_s + QString::number(rows) + u')'});
        print();
    }
    for (int lines = 30; lines <= 80; ++lines) { // over two pages and three, ending anywhere
        SCOPED_TRACE(lines);
        desk.execute({u"UPDATE K SET T = '"_s + QStringList(lines, u"Zeile"_s).join(u'\n') + u"'"_s});
        const auto pages = print();
        ASSERT_GE(pages.size(), 2u);
        EXPECT_EQ(pages[0].size(), 19) << "as many rows as there is room for, and the head";
        EXPECT_EQ(pages[1].mid(1, 4), (QStringList{u"19"_s, u"20"_s, u"Zeile"_s, u"Zeile"_s})) << "goes on below them";
        for (std::size_t page = 2; page < pages.size(); ++page)
            EXPECT_EQ(pages[page].count(u"Kopf"_s), 0) << "no head of a table stands over a text";
    }
}

TEST(Pages, MoveDownWhatStandsBelowALongTextAndNotWhatStandsBeside)
{
    const Desk desk;
    desk.execute({u"CREATE TABLE J (T Memo)"_s, u"INSERT INTO J (T) VALUES ('eins\nzwei\ndrei')"_s});
    const auto document = report::setPages(desk.job(desk.form(R"(<data table="J"/>
        <detail>
          <text x="0" width="60">{J.T}</text>
          <text x="0" y="5" width="60">darunter</text>
          <line x="0" y="10" width="70"/>
          <text x="65" y="6" width="30">daneben</text>
          <text x="65" y="12" width="30">unter der Linie</text>
        </detail>)")),
                                           [](qsizetype, qsizetype) { return true; });
    QMap<QString, double> tops;
    for (const report::TextLine& line : document->pages[0].lines)
        tops[line.text] = line.top - 10 * report::DotsPerMm;
    const double shift = tops[u"drei"_s]; // of three lines where one was foreseen
    const auto expected = [&](double y, bool moved) { return y * report::DotsPerMm + (moved ? shift : 0); };
    EXPECT_GT(shift, 0);
    EXPECT_NEAR(tops[u"darunter"_s], expected(5, true), 1);
    EXPECT_NEAR(tops[u"daneben"_s], expected(6, false), 1);
    EXPECT_NEAR(tops[u"unter der Linie"_s], expected(12, true), 1);
}

TEST(Pages, RefuseAFormWithoutRoomForRows)
{
    const Desk desk;
    fill(desk, {{u"A"_s, 2}});
    for (const char* const bands :
         {R"(<page-header height="180"/>)",
          R"(<group by="{J.Gruppe}"><header height="175" repeat="true"/></group><detail height="10"/>)"}) {
        const QString form = desk.form(QByteArray(R"(<data table="J"/>)") + bands);
        EXPECT_EQ(Desk::refusal(desk.job(form)),
                  u"Das Berichtsformular '"_s + form +
                      u"': Ränder, Kopf und Fuß lassen auf der Seite keinen Platz für Zeilen."_s);
    }
}
