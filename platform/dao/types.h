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

/// The declared type as it stands in the file, in capitals: COUNTER, TEXT(200), INTEGER (2 bytes), LONG, LONGTEXT (a
/// Memo) ...
QString declaredType(const Field &field);

/// Reads a declared type back into `field`. What the program never declares is read as a Text.
void readDeclaredType(const QString &declared, Field &field);

/// How the values of a field are read and compared: a Byte as an Integer, a Memo as a Text, all others as they are.
FieldType valueType(FieldType type);

/// A Currency counts in ten-thousandths; halves go to the even one.
inline constexpr double currencyUnits = 10'000;
inline constexpr double mostCurrency = 922'337'203'685'477.5807;
double asCurrency(double number);

/// The type that holds the values of both: Text where a number meets a text or a date. None has no type of its own.
std::optional<FieldType> commonType(std::optional<FieldType> left, std::optional<FieldType> right);

inline bool isNumber(FieldType type)
{
    return type != FieldType::Text && type != FieldType::Memo && type != FieldType::Date;
}

} // namespace dao
