#include "tests/platform/jet/Script.h"

#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

Block beginBlock(const QString& head, int line)
{
    Block block;
    block.line = line;
    const qsizetype gap = head.indexOf(u"  "_s);
    const QString left = gap < 0 ? head : head.left(gap);
    block.title = gap < 0 ? QString() : head.mid(gap).trimmed();
    block.word = left.section(u' ', 0, 0);
    block.argument = left.section(u' ', 1);
    return block;
}

void addLine(Block& block, const QString& line, bool& afterBar)
{
    if (line == u"----"_s) {
        afterBar = true;
    } else if (afterBar) {
        block.expected += line;
    } else if (line.startsWith(u"SHOW "_s)) {
        block.show = line.mid(5).split(u", "_s);
    } else if (line.startsWith(u"FIND "_s)) {
        block.find = line.mid(5);
    } else if (line.startsWith(u' ') && block.word == u"setup"_s) {
        block.body.last() += line;
    } else {
        block.body += line;
    }
}

} // namespace

std::vector<Block> readScript(const QString& file)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) throw std::runtime_error("cannot read " + file.toStdString());
    std::vector<Block> blocks;
    bool inBlock = false;
    bool afterBar = false;
    const QStringList lines = QString::fromUtf8(source.readAll()).split(u'\n');
    for (int number = 1; const QString& line : lines) {
        if (line.isEmpty()) {
            inBlock = false;
        } else if (inBlock) {
            addLine(blocks.back(), line, afterBar);
        } else if (!line.startsWith(u'#')) {
            blocks.push_back(beginBlock(line, number));
            inBlock = true;
            afterBar = false;
        }
        ++number;
    }
    return blocks;
}
