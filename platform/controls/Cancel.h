#pragma once

/// What a handler sets to true to refuse what is about to happen. A handler that fails has refused, too
/// (Wiring.h).
class Cancel {
public:
    Cancel& operator=(bool cancelled)
    {
        m_cancelled = cancelled;
        return *this;
    }
    explicit operator bool() const { return m_cancelled; }

private:
    bool m_cancelled = false;
};
