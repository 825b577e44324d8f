#include "platform/report/Totals.h"

#include "platform/report/Evaluation.h"

#include <algorithm>
#include <cmath>

namespace report {

namespace {

constexpr double Finest = 1e10; // sums are held to 10 decimals: what adding leaves beyond is dust

} // namespace

Totals::Totals(const std::vector<Reference*>& wanted, int groups)
{
    for (Reference* const reference : wanted) {
        const auto found = std::find_if(m_totals.begin(), m_totals.end(), [reference](const Total& total) {
            return total.kind == reference->kind && total.column == reference->column;
        });
        reference->total = static_cast<int>(found - m_totals.begin());
        if (found == m_totals.end()) m_totals.push_back({reference->kind, reference->column});
    }
    m_levels.assign(static_cast<std::size_t>(groups) + 1, std::vector<State>(m_totals.size()));
}

void Totals::add(const Row& row)
{
    for (std::size_t i = 0; i < m_totals.size(); ++i) {
        const Total& total = m_totals[i];
        const jet::Value value =
            total.column < 0 ? jet::Value() : row[static_cast<std::size_t>(total.column)];
        const bool adds = total.kind == Reference::Kind::Sum || total.kind == Reference::Kind::Total;
        const double number = adds ? asNumber(value) : 0;
        for (auto& level : m_levels) {
            State& state = level[i];
            state.sum += number;
            if (total.kind == Reference::Kind::Same) {
                if (state.rows == 0) state.first = value;
                state.differs = state.differs || !isEqual(state.first, value);
            }
            ++state.rows;
        }
    }
}

void Totals::reset(int level)
{
    for (std::size_t i = static_cast<std::size_t>(level); i < m_levels.size(); ++i)
        std::fill(m_levels[i].begin(), m_levels[i].end(), State());
}

jet::Value Totals::value(const Reference& total, int level) const
{
    const State& state = m_levels[static_cast<std::size_t>(level)][static_cast<std::size_t>(total.total)];
    switch (total.kind) {
    case Reference::Kind::Sum:
    case Reference::Kind::Total: {
        const double held = std::round(state.sum * Finest) / Finest;
        return std::isfinite(held) ? held : state.sum;
    }
    case Reference::Kind::Same: return qint64{!state.differs};
    default: return state.rows;
    }
}

} // namespace report
