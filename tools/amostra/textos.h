#pragma once

#include <QString>

#include <initializer_list>
#include <vector>

namespace amostra
{

/// The texts of a register's controls; a control that is not told is empty.
class Textos
{
public:
    struct Campo {
        QStringView controle;
        QString texto;
    };

    Textos(std::initializer_list<Campo> campos) : campos_(campos) {}

    void acrescenta(QStringView controle, const QString &texto) { campos_.push_back({controle, texto}); }

    QString operator()(QStringView controle) const
    {
        for (const Campo &campo : campos_) {
            if (campo.controle == controle) {
                return campo.texto;
            }
        }
        return {};
    }

private:
    std::vector<Campo> campos_;
};

} // namespace amostra
