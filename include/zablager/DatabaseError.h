#pragma once

#include <QString>

#include <stdexcept>

namespace jet {

/// Why the database engine refused. The values are the numbers that handbooks and support know.
enum class ErrorNumber : int {
    InvalidArgument = 5,
    Overflow = 6,
    DivisionByZero = 11,
    ReservedError = 3000, ///< Something that no other number tells; the text holds it.
    TableExists = 3010,
    ObjectNotFound = 3011,
    UpdateWithoutEdit = 3020,
    NoCurrentRecord = 3021,
    DuplicateKey = 3022,
    FileNotFound = 3024,
    ReadOnly = 3027,
    WrongPassword = 3031,
    DiskError = 3043,
    PathNotFound = 3044,
    CannotOpenFile = 3051,
    TooFewParameters = 3061,
    DuplicateAlias = 3063,
    CannotExecuteSelect = 3065,
    UnknownNameInCriterion = 3070,
    ExpressionSyntax = 3075,
    CriterionSyntax = 3077,
    UnknownTable = 3078,
    AmbiguousColumn = 3079,
    UndefinedFunction = 3085,
    OrderByConflictsWithDistinct = 3093,
    AggregateNotAllowed = 3096,
    CircularAlias = 3103,
    CannotSortMemo = 3117,
    CannotGroupMemo = 3119,
    NotInAggregate = 3122,
    InvalidName = 3125,
    UnknownInsertColumn = 3127,
    DeleteSyntax = 3128,
    UnknownStatement = 3129,
    FromSyntax = 3131,
    GroupBySyntax = 3132,
    HavingSyntax = 3133,
    InsertSyntax = 3134,
    JoinSyntax = 3135,
    OrderBySyntax = 3138,
    SelectSyntax = 3141,
    TextAfterStatement = 3142,
    UpdateSyntax = 3144,
    WhereSyntax = 3145,
    InvalidBookmark = 3159,
    FieldTooLong = 3163,
    FieldNotUpdatable = 3164,
    RecordDeleted = 3167,
    UnknownDatabaseType = 3170,
    DiskFull = 3183,
    ChangedByAnotherUser = 3197,
    DatabaseExists = 3204,
    Locked = 3218,
    NotSupported = 3251,
    NoSuchField = 3265,
    CreateTableSyntax = 3290,
    CreateIndexSyntax = 3291,
    ColumnDefinitionSyntax = 3292,
    AlterTableSyntax = 3293,
    DropSyntax = 3295,
    ValueRequired = 3314,
    ValueNotAllowed = 3317,
    UnknownFormat = 3343,
    WrongColumnCount = 3346,
    TooComplex = 3360,
    NoSuchTable = 3371,
    IndexExists = 3375,
    ColumnExists = 3380,
    ObjectClosed = 3420,
    ConversionFailed = 3421,
    TypeMismatch = 3464,
};

/// A refusal of the database engine.
///
/// The text is German, names the object concerned and is shown to the user as it stands.
class Error : public std::runtime_error {
public:
    Error(ErrorNumber number, const QString& text, qsizetype position = -1)
        : std::runtime_error(text.toStdString()), m_number(number), m_text(text), m_position(position)
    {}

    ErrorNumber number() const noexcept { return m_number; }
    const QString& text() const noexcept { return m_text; } ///< what() holds the same in UTF-8.
    /// Character of the statement where the fault was noticed, counted from 0; -1: the fault has no place.
    qsizetype position() const noexcept { return m_position; }

private:
    ErrorNumber m_number;
    QString m_text;
    qsizetype m_position;
};

} // namespace jet
