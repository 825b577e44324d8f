#include "platform/report/Evaluation.h"

#include "platform/jet/Conversion.h"
#include "platform/jet/NumberFormat.h"
#include "platform/jet/TextOrder.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace report {

namespace {

/// Below, at or above 0. Texts are compared as texts unless the other side is a number and both can be read
/// as one.
int compare(const jet::Value& left, const jet::Value& right)
{
    const auto isNumeric = [](const jet::Value& value) {
        return value.isNull() || !jet::isText(value.type()) || value.toText().isEmpty() ||
               jet::readNumber(value.toText()).has_value();
    };
    const auto isTextOrNull = [](const jet::Value& value) {
        return value.isNull() || jet::isText(value.type());
    };
    if ((isTextOrNull(left) && isTextOrNull(right)) || !isNumeric(left) || !isNumeric(right))
        return jet::compareTexts(left.toText(), right.toText());
    const double difference = asNumber(left) - asNumber(right);
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

bool holds(const Comparison& comparison, const Standing& standing)
{
    const auto value = [&standing](const Operand& operand) {
        const auto* const reference = std::get_if<Reference>(&operand);
        return reference ? valueOf(*reference, standing) : std::get<jet::Value>(operand);
    };
    const int order = compare(value(comparison.left), value(comparison.right));
    switch (comparison.op) {
    case Comparison::Operator::Equal: return order == 0;
    case Comparison::Operator::Unequal: return order != 0;
    case Comparison::Operator::Less: return order < 0;
    case Comparison::Operator::LessOrEqual: return order <= 0;
    case Comparison::Operator::Greater: return order > 0;
    case Comparison::Operator::GreaterOrEqual: return order >= 0;
    }
    Q_UNREACHABLE();
}

QString shown(const jet::Value& value, const QString& format)
{
    const bool formatsNumbers = format.contains(u'0') || format.contains(u'#');
    if (formatsNumbers && jet::isNumber(value.type())) return jet::formatted(value.toDouble(), format);
    if (!format.isEmpty() && !formatsNumbers && value.type() == jet::Type::Date)
        return value.toDate().toString(QString(format).replace(u'm', u'M'));
    return value.toText();
}

} // namespace

jet::Value valueOf(const Reference& reference, const Standing& standing)
{
    switch (reference.kind) {
    case Reference::Kind::Column:
    case Reference::Kind::Formula:
        if (reference.column < 0) return reference.constant;
        return standing.row ? (*standing.row)[static_cast<std::size_t>(reference.column)] : jet::Value();
    case Reference::Kind::Sum:
    case Reference::Kind::Count:
    case Reference::Kind::Same:
        return standing.totals ? standing.totals->value(reference, standing.level) : jet::Value();
    case Reference::Kind::Page: return standing.page;
    case Reference::Kind::Pages: return QString(LastPage);
    case Reference::Kind::Continued: return int{standing.continued};
    case Reference::Kind::Ending: return int{standing.ending};
    case Reference::Kind::Total:
    case Reference::Kind::Today: return reference.constant;
    }
    Q_UNREACHABLE();
}

QString textOf(const Template& text, const QString& format, const Standing& standing)
{
    QString whole;
    for (const auto& part : text) {
        const auto* const reference = std::get_if<Reference>(&part);
        if (!reference) {
            whole += std::get<QString>(part);
            continue;
        }
        const QString value = shown(valueOf(*reference, standing), format);
        whole += reference->lower ? value.toLower() : value;
    }
    return whole;
}

bool holds(const Condition& condition, const Standing& standing)
{
    return condition.empty() || std::any_of(condition.begin(), condition.end(), [&standing](const auto& all) {
               return std::all_of(all.begin(), all.end(),
                                  [&standing](const Comparison& one) { return holds(one, standing); });
           });
}

double asNumber(const jet::Value& value)
{
    if (jet::isText(value.type())) return jet::readNumber(value.toText()).value_or(0);
    return value.toDouble();
}

bool isEqual(const jet::Value& left, const jet::Value& right)
{
    return compare(left, right) == 0;
}

} // namespace report
