#pragma once

#include <QtGlobal>

#include <deque>

namespace jet::store {

/// What a store finds a row of a table again by, as long as there is that row. What its bits mean is the
/// store's affair; keys of one table stand in some order, a later row's key not always behind an earlier
/// one's.
class Key {
public:
    Key() = default;
    explicit Key(qint64 bits) : m_bits(bits) {}
    qint64 bits() const { return m_bits; }
    bool operator==(const Key& other) const { return m_bits == other.m_bits; }
    bool operator<(const Key& other) const { return m_bits < other.m_bits; }

private:
    qint64 m_bits = 0; // a dynaset of a million rows keeps a million keys: eight bytes each
};

/// Those of many rows: grows without copies, whose memory would stay taken beside that of the keys.
using Keys = std::deque<Key>;

} // namespace jet::store
