#pragma once

#include <QString>

class QComboBox;

/// Marks what stands in a field as wrong, or with an empty reason as right again: a sign in the field, the
/// reason as its tool tip and for assistive tools. The field's own tool tip comes back afterwards.
void markField(QComboBox& field, const QString& reason);
