#pragma once

#include <QString>

/// Why a name of an article, a place or a partner will make trouble although it may be used: lists and
/// filters put names into their statements as they stand, and find "order" and "where" in them; empty: it
/// will make none.
QString namenswarnung(const QString& name);
/// The same for an article, of which the views leave one out.
QString artikelwarnung(const QString& name);
