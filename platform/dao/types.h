#pragma once

#include "platform/dao/tabledef.h"

#include <QString>

#include <optional>

namespace dao
{

/// What a type word means: the field's type and whether the engine numbers it.
struct TypeWord {
    FieldType type = FieldType::Text;
    bool counter = false;
};

/// A type word of CREATE TABLE and ALTER TABLE, where INTEGER is the 4-byte Long. None for an unknown word.
std::optional<TypeWord> typeOfDefinition(QStringView word);

/// The declared type as it stands in the file, in capitals: COUNTER, TEXT(200), INTEGER (2 bytes), LONG, SINGLE ...
QString declaredType(const Field &field);

/// Reads a declared type back into `field`. What the program never declares is read as a Text.
void readDeclaredType(const QString &declared, Field &field);

inline bool isNumber(FieldType type)
{
    return type != FieldType::Text && type != FieldType::Date;
}

} // namespace dao
