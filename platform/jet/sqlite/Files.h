#pragma once

#include "platform/jet/store/Store.h"

namespace jet::sqlite {

/// The store that comes with the engine: each file a SQLite database of ours.
class Files : public store::Store {
public:
    std::unique_ptr<store::Connection> open(const QString& path, int lockTimeout) override;
    std::unique_ptr<store::Connection> create(const QString& path, int lockTimeout) override;
    void settle(const QString& path, int lockTimeout) override;
    void copyUnopened(const QString& from, const QString& into) override;
    void remove(const QString& path) override;
    void copy(const QString& from, const QString& into, int lockTimeout,
              const store::Progress& progress) override;
};

} // namespace jet::sqlite
