#include "platform/jet/rows/KeysetRows.h"

#include "platform/jet/Errors.h"
#include "platform/jet/rows/Criterion.h"

#include <algorithm>
#include <bit>

namespace jet {

namespace {

using store::Key;

/// Sorted keys, at least one, that many others are looked up in: a bit for so many keys says first that there
/// is none, since a search among a hundred thousand waits for memory at each step.
class KeySet {
public:
    explicit KeySet(const store::Keys& keys) : m_keys(keys)
    {
        constexpr std::size_t BitsPerKey = 16;
        m_bits.resize(std::bit_ceil(BitsPerKey * keys.size()));
        for (const Key key : keys)
            m_bits[bit(key)] = true;
    }

    bool contains(Key key) const
    {
        return m_bits[bit(key)] && std::binary_search(m_keys.begin(), m_keys.end(), key);
    }

private:
    /// Spreads keys of whatever shape, near ones as far ones.
    std::size_t bit(Key key) const
    {
        constexpr quint64 GoldenRatio = 0x9E3779B97F4A7C15;
        return (quint64(key.bits()) * GoldenRatio) >> (64 - std::countr_zero(m_bits.size()));
    }

    const store::Keys& m_keys;
    std::vector<bool> m_bits;
};

} // namespace

KeysetRows::KeysetRows(std::shared_ptr<Database::Session> session, std::shared_ptr<Plan> plan,
                       sql::Shape shape)
    : KeyedRows(std::move(session), std::move(plan), std::move(shape))
{
    m_keys = m_plan->query->keys(m_shape.parameters);
    m_ascending = std::is_sorted(m_keys.begin(), m_keys.end());
}

void KeysetRows::requireRows() const
{
    if (m_keys.empty()) raise(ErrorNumber::NoCurrentRecord);
}

void KeysetRows::moveTo(qsizetype position)
{
    leaveRow();
    m_deleted = false;
    m_position = position;
}

void KeysetRows::moveFirst()
{
    requireRows();
    moveTo(0);
}

void KeysetRows::moveLast()
{
    requireRows();
    moveTo(count() - 1);
}

void KeysetRows::moveNext()
{
    if (m_deleted) return moveTo(m_position); // the row after the deleted one has taken its place
    if (isEof()) raise(ErrorNumber::NoCurrentRecord);
    moveTo(m_position + 1);
}

void KeysetRows::movePrevious()
{
    if (isBof()) raise(ErrorNumber::NoCurrentRecord);
    moveTo(m_position - 1);
}

void KeysetRows::findFirst(const QString& criterion)
{
    const auto shape = sql::shapeOf(criterion);
    const qsizetype position = firstOf(found(shape), 0);
    noMatch = position < 0;
    if (noMatch)
        leaveRow(); // a pending edit is dropped by every find; the row stays current
    else
        moveTo(position);
}

/// Asks short stretches of the rows first: what is frequent is met there, and need not be looked for in all
/// of them.
qsizetype KeysetRows::findFrom(qsizetype position, const QString& criterion) const
{
    if (position >= count()) position = 0;
    const auto shape = sql::shapeOf(criterion);
    qsizetype asked = position;
    for (const qsizetype stretch : {500, 2'000}) {
        Keys near;
        for (const qsizetype end = std::min(asked + stretch, count()); asked < end; ++asked)
            near.push_back(keyAt(asked));
        const auto met = found(shape, &near);
        if (!met.empty()) return firstOf(met, position);
    }
    return firstOf(found(shape), position);
}

store::Keys KeysetRows::found(const sql::Shape& criterion, const Keys* among) const
{
    const auto filter = filterOf(*m_plan, criterion);
    store::Parameters parameters = m_shape.parameters;
    parameters.insert(parameters.end(), criterion.parameters.begin(), criterion.parameters.end());
    Keys keys = among ? filter->keysAmong(parameters, *among) : filter->keys(parameters);
    std::sort(keys.begin(), keys.end());
    return keys;
}

qsizetype KeysetRows::firstOf(const store::Keys& keys, qsizetype from) const
{
    if (keys.empty() || m_keys.empty()) return -1;
    const auto start = m_keys.begin() + from;
    if (m_ascending) {
        const auto next = std::lower_bound(keys.begin(), keys.end(), *start);
        const auto lookUp = [&](auto key, auto end) -> qsizetype {
            for (; key != end; ++key) {
                const auto place = std::lower_bound(m_keys.begin(), m_keys.end(), *key);
                if (place != m_keys.end() && *place == *key) return place - m_keys.begin();
            }
            return -1;
        };
        const qsizetype behind = lookUp(next, keys.end());
        return behind >= 0 ? behind : lookUp(keys.begin(), next);
    }
    const KeySet wanted(keys);
    const auto meet = [&](auto row, auto end) {
        return std::find_if(row, end, [&](Key key) { return wanted.contains(key); });
    };
    if (const auto behind = meet(start, m_keys.end()); behind != m_keys.end()) return behind - m_keys.begin();
    const auto before = meet(m_keys.begin(), start);
    return before == start ? -1 : before - m_keys.begin();
}

Key KeysetRows::keyAt(qsizetype position) const
{
    if (position < 0 || position >= count()) raise(ErrorNumber::NoCurrentRecord);
    return m_keys[static_cast<std::size_t>(position)];
}

void KeysetRows::moveToPosition(qsizetype position)
{
    keyAt(position);
    moveTo(position);
}

bool KeysetRows::moveToMark(qint64 mark)
{
    const qsizetype position = positionOf(mark);
    if (position < 0) return false;
    moveTo(position);
    return true;
}

Key KeysetRows::currentKey() const
{
    if (m_deleted) raise(ErrorNumber::RecordDeleted);
    if (isBof() || isEof()) raise(ErrorNumber::NoCurrentRecord);
    return m_keys[static_cast<std::size_t>(m_position)];
}

void KeysetRows::added(Key key)
{
    // and stays so: without a current row before, the new one becomes it by a move only
    const bool wasEof = isEof();
    m_ascending = m_ascending && (m_keys.empty() || m_keys.back() < key);
    m_keys.push_back(key);
    if (wasEof) m_position = count();
}

void KeysetRows::removed()
{
    m_keys.erase(m_keys.begin() + m_position);
    m_deleted = true;
}

} // namespace jet
