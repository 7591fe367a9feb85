#include "platform/dao/types.h"

#include <algorithm>
#include <array>

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
    NamedType{"COUNTER"_L1, {FieldType::Long, true}},     NamedType{"AUTOINCREMENT"_L1, {FieldType::Long, true}},
    NamedType{"TEXT"_L1, {FieldType::Text, false}},       NamedType{"VARCHAR"_L1, {FieldType::Text, false}},
    NamedType{"CHAR"_L1, {FieldType::Text, false}},       NamedType{"CHARACTER"_L1, {FieldType::Text, false}},
    NamedType{"STRING"_L1, {FieldType::Text, false}},     NamedType{"BOOLEAN"_L1, {FieldType::Boolean, false}},
    NamedType{"BIT"_L1, {FieldType::Boolean, false}},     NamedType{"YESNO"_L1, {FieldType::Boolean, false}},
    NamedType{"LOGICAL"_L1, {FieldType::Boolean, false}}, NamedType{"LONG"_L1, {FieldType::Long, false}},
    NamedType{"INTEGER"_L1, {FieldType::Long, false}},    NamedType{"INT"_L1, {FieldType::Long, false}},
    NamedType{"SHORT"_L1, {FieldType::Integer, false}},   NamedType{"SMALLINT"_L1, {FieldType::Integer, false}},
    NamedType{"SINGLE"_L1, {FieldType::Single, false}},   NamedType{"REAL"_L1, {FieldType::Single, false}},
    NamedType{"DOUBLE"_L1, {FieldType::Double, false}},   NamedType{"FLOAT"_L1, {FieldType::Double, false}},
    NamedType{"NUMBER"_L1, {FieldType::Double, false}},   NamedType{"DATE"_L1, {FieldType::Date, false}},
    NamedType{"DATETIME"_L1, {FieldType::Date, false}},   NamedType{"TIME"_L1, {FieldType::Date, false}},
};

/// How the file names the types.
constexpr std::array declarations = {
    NamedType{"COUNTER"_L1, {FieldType::Long, true}},     NamedType{"BOOLEAN"_L1, {FieldType::Boolean, false}},
    NamedType{"INTEGER"_L1, {FieldType::Integer, false}}, NamedType{"LONG"_L1, {FieldType::Long, false}},
    NamedType{"SINGLE"_L1, {FieldType::Single, false}},   NamedType{"DOUBLE"_L1, {FieldType::Double, false}},
    NamedType{"DATE"_L1, {FieldType::Date, false}},
};

} // namespace

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
