#pragma once

#include <QString>

#include <vector>

namespace dao
{

/// The field types with the codes that the platform gives them.
enum class FieldType {
    Boolean = 1,
    Byte = 2,     ///< 0 to 255; read as an Integer
    Integer = 3,  ///< 16 bits
    Long = 4,     ///< 32 bits
    Currency = 5, ///< four decimal places; read as a Double
    Single = 6,
    Double = 7,
    Date = 8,
    Text = 10,
    Memo = 12, ///< a text of any length
};

/// `Field::attributes` of a counter: fixed width and numbered by the engine.
inline constexpr int counterAttributes = 17;

struct Field {
    QString name;
    FieldType type = FieldType::Text;
    int size = 0;       ///< characters, for Text only
    int attributes = 0; ///< `counterAttributes` for a counter

    bool isCounter() const { return attributes == counterAttributes; }
};

/// A table's name and its fields in order.
class TableDef
{
public:
    explicit TableDef(QString name) : name_(std::move(name)) {}

    const QString &name() const { return name_; }
    const std::vector<Field> &fields() const { return fields_; }
    void append(Field field) { fields_.push_back(std::move(field)); }

private:
    QString name_;
    std::vector<Field> fields_;
};

} // namespace dao
