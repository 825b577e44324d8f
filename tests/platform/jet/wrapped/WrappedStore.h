#pragma once

#include "platform/jet/store/Store.h"

/// A store unlike the engine's own, which does the work behind it: its keys are of another shape and stand in
/// another order, it can take part in no other file, and any of its calls can be made to fail as a bad disk
/// does.
class WrappedStore : public jet::store::Store {
public:
    WrappedStore();

    std::unique_ptr<jet::store::Connection> open(const QString& path, int lockTimeout) override;
    std::unique_ptr<jet::store::Connection> create(const QString& path, int lockTimeout) override;
    void settle(const QString& path, int lockTimeout) override;
    void copyUnopened(const QString& from, const QString& into) override;
    void remove(const QString& path) override;
    void copy(const QString& from, const QString& into, int lockTimeout,
              const jet::store::Progress& progress) override;

    /// The call that fails, counted from 1 from now on; 0: none.
    static void failAt(int call);
    static bool hasFailed(); ///< Since failAt.

private:
    std::unique_ptr<jet::store::Store> m_inner;
};
