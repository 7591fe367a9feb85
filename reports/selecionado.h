#pragma once

#include <QHash>
#include <QString>

class QWidget;

namespace reports
{

/// What stands in the boxes of a selection window. They are read anew for every filling and every print; behind a
/// window that was closed meanwhile its boxes count as they were read last. One that was never open is loaded.
class Selecionado
{
public:
    explicit Selecionado(QStringView janela);

    QString inicio() const { return texto(u"txtDataInicio"); }
    QString fim() const { return texto(u"txtDataFim"); }
    QString periodoSQL() const;                        ///< as it follows BETWEEN
    QString periodo(QStringView entre = u" à ") const; ///< as it is read
    QString texto(QStringView controle) const;         ///< of a box, a label or a combo
    qsizetype indice(QStringView combo) const;         ///< of the entry chosen
    bool marcado(QStringView caixa) const;             ///< of a check box

private:
    struct Valor {
        QString texto;
        int indice = -1;
    };
    using Valores = QHash<QString, Valor>;

    static Valor valorDe(const QWidget &controle);
    static Valores valoresDe(const QWidget &janela);
    Valor valor(QStringView controle) const;

    Valores valores_;
};

} // namespace reports
