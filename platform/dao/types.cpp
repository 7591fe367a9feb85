#include "platform/dao/types.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

struct NamedType {
    QLatin1StringView word;
    TypeWord type;
};

constexpr std::array definitions = {
    NamedType{"COUNTER"_L1, {FieldType::Long, true}},       NamedType{"AUTOINCREMENT"_L1, {FieldType::Long, true}},
    NamedType{"TEXT"_L1, {FieldType::Text, false}},         NamedType{"VARCHAR"_L1, {FieldType::Text, false}},
    NamedType{"CHAR"_L1, {FieldType::Text, false}},         NamedType{"CHARACTER"_L1, {FieldType::Text, false}},
    NamedType{"STRING"_L1, {FieldType::Text, false}},       NamedType{"BOOLEAN"_L1, {FieldType::Boolean, false}},
    NamedType{"BIT"_L1, {FieldType::Boolean, false}},       NamedType{"YESNO"_L1, {FieldType::Boolean, false}},
    NamedType{"LOGICAL"_L1, {FieldType::Boolean, false}},   NamedType{"LONG"_L1, {FieldType::Long, false}},
    NamedType{"INTEGER"_L1, {FieldType::Long, false}},      NamedType{"INT"_L1, {FieldType::Long, false}},
    NamedType{"SHORT"_L1, {FieldType::Integer, false}},     NamedType{"SMALLINT"_L1, {FieldType::Integer, false}},
    NamedType{"SINGLE"_L1, {FieldType::Single, false}},     NamedType{"REAL"_L1, {FieldType::Single, false}},
    NamedType{"DOUBLE"_L1, {FieldType::Double, false}},     NamedType{"FLOAT"_L1, {FieldType::Double, false}},
    NamedType{"NUMBER"_L1, {FieldType::Double, false}},     NamedType{"DATE"_L1, {FieldType::Date, false}},
    NamedType{"DATETIME"_L1, {FieldType::Date, false}},     NamedType{"TIME"_L1, {FieldType::Date, false}},
    NamedType{"BYTE"_L1, {FieldType::Byte, false}},         NamedType{"TINYINT"_L1, {FieldType::Byte, false}},
    NamedType{"CURRENCY"_L1, {FieldType::Currency, false}}, NamedType{"MONEY"_L1, {FieldType::Currency, false}},
    NamedType{"MEMO"_L1, {FieldType::Memo, false}},         NamedType{"LONGTEXT"_L1, {FieldType::Memo, false}},
    NamedType{"LONGCHAR"_L1, {FieldType::Memo, false}},     NamedType{"NOTE"_L1, {FieldType::Memo, false}},
};

/// How the file names the types. A name decides how the engine stores a value: digits in a MEMO would become a number,
/// in a LONGTEXT they stay a text.
constexpr std::array declarations = {
    NamedType{"COUNTER"_L1, {FieldType::Long, true}},       NamedType{"BOOLEAN"_L1, {FieldType::Boolean, false}},
    NamedType{"INTEGER"_L1, {FieldType::Integer, false}},   NamedType{"LONG"_L1, {FieldType::Long, false}},
    NamedType{"SINGLE"_L1, {FieldType::Single, false}},     NamedType{"DOUBLE"_L1, {FieldType::Double, false}},
    NamedType{"DATE"_L1, {FieldType::Date, false}},         NamedType{"BYTE"_L1, {FieldType::Byte, false}},
    NamedType{"CURRENCY"_L1, {FieldType::Currency, false}}, NamedType{"LONGTEXT"_L1, {FieldType::Memo, false}},
};

/// The numbers by how much they hold.
constexpr std::array widths = {FieldType::Boolean, FieldType::Byte,     FieldType::Integer, FieldType::Long,
                               FieldType::Single,  FieldType::Currency, FieldType::Double};

qsizetype width(FieldType type)
{
    return std::find(widths.begin(), widths.end(), type) - widths.begin();
}

} // namespace

FieldType valueType(FieldType type)
{
    switch (type) {
    case FieldType::Byte:
        return FieldType::Integer;
    case FieldType::Memo:
        return FieldType::Text;
    default:
        return type;
    }
}

double asCurrency(double number)
{
    return std::nearbyint(number * currencyUnits) / currencyUnits;
}

std::optional<FieldType> commonType(std::optional<FieldType> left, std::optional<FieldType> right)
{
    if (left == right || !right) {
        return left;
    }
    if (!left) {
        return right;
    }
    if (!isNumber(*left) || !isNumber(*right)) {
        return FieldType::Text;
    }
    const auto [narrow, wide] = std::minmax({width(*left), width(*right)});
    const bool exact = narrow <= width(wide == width(FieldType::Single) ? FieldType::Integer : FieldType::Long);
    return exact ? (width(*left) == wide ? left : right) : FieldType::Double;
}

std::optional<TypeWord> typeOfDefinition(QStringView word)
{
    const auto *const found = std::find_if(definitions.begin(), definitions.end(), [word](const NamedType &candidate) {
        return word.compare(candidate.word, Qt::CaseInsensitive) == 0;
    });
    return found != definitions.end() ? std::optional(found->type) : std::nullopt;
}

QString declaredType(const Field &field)
{
    if (field.type == FieldType::Text) {
        return u"TEXT(%1)"_s.arg(field.size);
    }
    const auto *const found =
        std::find_if(declarations.begin(), declarations.end(), [&field](const NamedType &candidate) {
            return candidate.type.type == field.type && candidate.type.counter == field.isCounter();
        });
    return found->word;
}

void readDeclaredType(const QString &declared, Field &field)
{
    const auto *const found =
        std::find_if(declarations.begin(), declarations.end(), [&declared](const NamedType &candidate) {
            return declared.compare(candidate.word, Qt::CaseInsensitive) == 0;
        });
    if (found != declarations.end()) {
        field.type = found->type.type;
        field.attributes = found->type.counter ? counterAttributes : 0;
        return;
    }
    field.type = FieldType::Text;
    const qsizetype open = declared.indexOf(u'(');
    const int size = declared.mid(open + 1).chopped(declared.endsWith(u')') ? 1 : 0).toInt();
    field.size = open >= 0 && size > 0 ? size : 255;
}

} // namespace dao
