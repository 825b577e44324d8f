#pragma once

#include "platform/report/Expression.h"

#include <vector>

namespace report {

using Row = std::vector<jet::Value>;

/// Running sums and counts of a report and of its open groups. Level 0 is the report, 1 its outermost group
/// and so on.
class Totals {
public:
    Totals() = default;
    /// `wanted`: a total each, which gets its number; those of the same meaning share one.
    Totals(const std::vector<Reference*>& wanted, int groups);

    void add(const Row& row);
    void reset(int level); ///< This level and all inside it begin anew.
    jet::Value value(const Reference& total, int level) const;

private:
    struct Total {
        Reference::Kind kind = Reference::Kind::Count;
        int column = -1;
    };
    struct State {
        double sum = 0;
        qint64 rows = 0;
        jet::Value first;
        bool differs = false;
    };
    std::vector<Total> m_totals;
    std::vector<std::vector<State>> m_levels; // by level, then by total
};

} // namespace report
