#include "platform/report/Expression.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace report {

namespace {

struct Word {
    QStringView text;
    Reference::Kind kind;
};
constexpr Word Plain[] = {{u"count", Reference::Kind::Count},   {u"page", Reference::Kind::Page},
                          {u"pages", Reference::Kind::Pages},   {u"continued", Reference::Kind::Continued},
                          {u"ending", Reference::Kind::Ending}, {u"today", Reference::Kind::Today}};
constexpr Word OfColumns[] = {
    {u"sum(", Reference::Kind::Sum}, {u"same(", Reference::Kind::Same}, {u"total(", Reference::Kind::Total}};

/// What stands between the braces.
Reference readReference(QStringView text, const Place& place)
{
    Reference reference;
    reference.place = place;
    QStringView rest = text.trimmed();
    static constexpr QStringView Lower = u"lower(";
    reference.lower = rest.startsWith(Lower, Qt::CaseInsensitive) && rest.endsWith(u')');
    if (reference.lower) rest = rest.mid(Lower.size()).chopped(1).trimmed();
    for (const Word& word : Plain) {
        if (rest.compare(word.text, Qt::CaseInsensitive) != 0) continue;
        reference.kind = word.kind;
        return reference;
    }
    if (rest.startsWith(u'@') && rest.size() > 1) {
        reference.kind = Reference::Kind::Formula;
        reference.name = rest.mid(1).toString();
        return reference;
    }
    for (const Word& word : OfColumns) {
        if (!rest.startsWith(word.text, Qt::CaseInsensitive) || !rest.endsWith(u')')) continue;
        reference.kind = word.kind;
        rest = rest.mid(word.text.size()).chopped(1).trimmed();
    }
    const qsizetype point = rest.indexOf(u'.');
    reference.table = rest.left(point).toString();
    reference.name = rest.mid(point + 1).toString();
    static constexpr QStringView NeverInNames = u"()[]'\"";
    const bool named =
        point > 0 && !reference.name.isEmpty() &&
        std::none_of(rest.begin(), rest.end(), [](QChar c) { return NeverInNames.contains(c); });
    if (!named)
        place.refuse(
            u"'{"_s + text.toString() +
            u"}' ist unverständlich. Möglich sind {TABELLE.Spalte}, {@Formel}, {sum(TABELLE.Spalte)}, "
            u"{total(TABELLE.Spalte)}, {same(TABELLE.Spalte)}, {lower(@Formel)}, {count}, {page},"
            u" {pages}, {continued}, {ending} und {today}."_s);
    return reference;
}

/// Reads an expression from left to right.
class Cursor {
public:
    Cursor(QStringView text, const Place& place) : m_text(text), m_rest(text.trimmed()), m_place(place) {}

    bool atEnd() const { return m_rest.isEmpty(); }

    Operand operand()
    {
        if (m_rest.startsWith(u'{')) return reference();
        if (m_rest.startsWith(u'\'') || m_rest.startsWith(u'"')) return text();
        return number();
    }

    Comparison::Operator comparison()
    {
        using Operator = Comparison::Operator;
        static constexpr std::pair<QStringView, Operator> Operators[] = {
            {u"<>", Operator::Unequal}, {u"<=", Operator::LessOrEqual}, {u">=", Operator::GreaterOrEqual},
            {u"=", Operator::Equal},    {u"<", Operator::Less},         {u">", Operator::Greater},
        };
        for (const auto& [sign, op] : Operators)
            if (takes(sign)) return op;
        refuse(u"Hier fehlt ein Vergleich (=, <>, <, >, <=, >=)"_s);
    }

    bool takes(QStringView word)
    {
        if (!m_rest.startsWith(word, Qt::CaseInsensitive)) return false;
        advance(word.size());
        return true;
    }

    [[noreturn]] void refuse(const QString& what) const
    {
        const QString rest = m_rest.isEmpty() ? u"am Ende"_s : u"vor \""_s + m_rest.toString() + u'"';
        m_place.refuse(what + u" ("_s + rest + u" von \""_s + m_text.toString() + u"\")."_s);
    }

private:
    void advance(qsizetype count) { m_rest = m_rest.mid(count).trimmed(); }

    Operand reference()
    {
        const qsizetype end = m_rest.indexOf(u'}');
        if (end < 0) refuse(u"Die schließende Klammer } fehlt"_s);
        Reference found = readReference(m_rest.mid(1, end - 1), m_place);
        advance(end + 1);
        return found;
    }

    Operand text()
    {
        const QChar mark = m_rest.front();
        QString value;
        qsizetype i = 1;
        for (; i < m_rest.size(); ++i) {
            if (m_rest[i] == mark) {
                if (i + 1 == m_rest.size() || m_rest[i + 1] != mark) break;
                ++i;
            }
            value += m_rest[i];
        }
        if (i >= m_rest.size()) refuse(u"Das Zeichen "_s + mark + u" am Ende eines Textes fehlt"_s);
        advance(i + 1);
        return jet::Value(value);
    }

    Operand number()
    {
        qsizetype length = 0;
        while (length < m_rest.size() && (m_rest[length].isDigit() || u"+-."_s.contains(m_rest[length])))
            ++length;
        bool isNumber = false;
        const double value = m_rest.left(length).toDouble(&isNumber);
        if (!isNumber) refuse(u"Hier fehlt ein Text in Hochkommas, eine Zahl oder ein {Verweis}"_s);
        advance(length);
        return jet::Value(value);
    }

    QStringView m_text;
    QStringView m_rest;
    const Place& m_place;
};

} // namespace

Template readTemplate(QStringView text, const Place& place)
{
    Template parts;
    QString plain;
    while (!text.isEmpty()) {
        const qsizetype brace = text.indexOf(u'{');
        plain += text.left(brace);
        if (brace < 0) break;
        text = text.mid(brace + 1);
        if (text.startsWith(u'{')) {
            plain += u'{';
            text = text.mid(1);
            continue;
        }
        const qsizetype end = text.indexOf(u'}');
        if (end < 0) place.refuse(u"Nach '{"_s + text.toString() + u"' fehlt die schließende Klammer }."_s);
        if (!plain.isEmpty()) parts.emplace_back(std::exchange(plain, {}));
        parts.emplace_back(readReference(text.left(end), place));
        text = text.mid(end + 1);
    }
    if (!plain.isEmpty()) parts.emplace_back(plain);
    return parts;
}

Condition readCondition(QStringView text, const Place& place)
{
    Cursor cursor(text, place);
    if (cursor.atEnd()) return {};
    Condition condition(1);
    for (;;) {
        Comparison comparison;
        comparison.left = cursor.operand();
        comparison.op = cursor.comparison();
        comparison.right = cursor.operand();
        condition.back().push_back(std::move(comparison));
        if (cursor.atEnd()) return condition;
        if (cursor.takes(u"or"))
            condition.emplace_back();
        else if (!cursor.takes(u"and"))
            cursor.refuse(u"Hier fehlt 'and' oder 'or'"_s);
    }
}

Operand readOperand(QStringView text, const Place& place)
{
    Cursor cursor(text, place);
    Operand operand = cursor.operand();
    if (cursor.atEnd()) return operand;
    const bool isText = text.trimmed().startsWith(u'\'');
    cursor.refuse(isText ? u"Ein Hochkomma (') beendet den Text zu früh"_s
                         : u"Hier geht es nach dem Ende weiter"_s);
}

void collect(Template& text, std::vector<Reference*>& into)
{
    for (auto& part : text)
        if (auto* reference = std::get_if<Reference>(&part)) into.push_back(reference);
}

void collect(Condition& condition, std::vector<Reference*>& into)
{
    for (auto& all : condition) {
        for (Comparison& comparison : all) {
            collect(comparison.left, into);
            collect(comparison.right, into);
        }
    }
}

void collect(Operand& operand, std::vector<Reference*>& into)
{
    if (auto* reference = std::get_if<Reference>(&operand)) into.push_back(reference);
}

} // namespace report
