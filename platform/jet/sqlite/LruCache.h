#pragma once

#include <QHash>

#include <list>
#include <utility>

namespace jet::sqlite {

/// Keeps the values used last, up to a bound.
template <typename Key, typename Value>
class LruCache {
public:
    explicit LruCache(qsizetype bound) : m_bound(bound) {}

    /// The value kept for the key, or null.
    Value* find(const Key& key)
    {
        const auto known = m_byKey.constFind(key);
        if (known == m_byKey.constEnd()) return nullptr;
        m_entries.splice(m_entries.begin(), m_entries, *known);
        return &m_entries.front().second;
    }

    Value& insert(const Key& key, Value value)
    {
        if (m_byKey.size() >= m_bound) {
            m_byKey.remove(m_entries.back().first);
            m_entries.pop_back();
        }
        m_entries.emplace_front(key, std::move(value));
        m_byKey.insert(key, m_entries.begin());
        return m_entries.front().second;
    }

    void clear()
    {
        m_byKey.clear();
        m_entries.clear();
    }

private:
    qsizetype m_bound;
    std::list<std::pair<Key, Value>> m_entries; // the last used first
    QHash<Key, typename std::list<std::pair<Key, Value>>::iterator> m_byKey;
};

} // namespace jet::sqlite
