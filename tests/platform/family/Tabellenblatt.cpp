#include "tests/platform/family/Tabellenblatt.h"

#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Debian's, which has the package; and the PATH may be a test's own.
const QString Python = u"/usr/bin/python3"_s;

constexpr char Leser[] = R"(
import openpyxl, sys
sheet = openpyxl.load_workbook(sys.argv[1]).active
print(sheet.title, sheet.freeze_panes, sheet.auto_filter.ref, sheet.page_setup.orientation,
      sheet.print_title_rows)
def shown(cell):
    if cell.value is None: return ''
    text = str(cell.value).replace(' 00:00:00', '')
    if cell.data_type == 'f': return 'FORMEL ' + text
    if cell.data_type != 's': text += ' [' + cell.number_format + ']'
    where = {'right': '>', 'center': '^'}.get(cell.alignment.horizontal, '')
    return '*' + text + '*' + where if cell.font.bold else text
for row in sheet.iter_rows():
    print(' | '.join(shown(cell) for cell in row))
)";

} // namespace

bool tabellenLeserDa()
{
    return QProcess::execute(Python, {u"-c"_s, u"import openpyxl"_s}) == 0;
}

QStringList tabellenblatt(const QString& datei)
{
    QProcess leser;
    leser.start(Python, {u"-c"_s, QString::fromLatin1(Leser), datei});
    EXPECT_TRUE(leser.waitForFinished()) << leser.errorString().toStdString();
    EXPECT_EQ(leser.exitCode(), 0) << leser.readAllStandardError().toStdString();
    QStringList zeilen = QString::fromUtf8(leser.readAllStandardOutput()).split(u'\n');
    zeilen.removeLast(); // behind the last line break
    return zeilen;
}
