#pragma once

#include "registers/registers.h"
#include "tests/registers/caso.h"
#include "workorders/workorders.h"

/// What the cases on the vehicle register have in common: two customers, three vehicles and the window.
///
/// | vehicle | customer  | make    | year      | colour | plate   | fuel     | note           | chassis           |
/// |---------|-----------|---------|-----------|--------|---------|----------|----------------|-------------------|
/// | 1       | 1 MARIA   | GOL 1.0 | 2019/2020 | Prata  | ABC1D23 | FLEX     | RISCO NA PORTA | 9BWZZZ377VT004251 |
/// | 2       | 2 ANTONIO | CELTA   | 2010/2011 | PRETO  | XYZ1234 | GASOLINA | Null           | Null              |
/// | 3       | 2 ANTONIO | GOL 1.0 | 2015/2015 | Null   | KLM9999 | Null     | Null           | 9BGRD08X04G117974 |
class VehicleCase : public QObject, protected cadastro::Case
{
protected:
    VehicleCase() : Case(window) {}

    using Rows = cadastro::Rows;
    using Fields = cadastro::Fields;

    static inline const QString window = QStringLiteral("frmCadaVeiculos");
    static inline const QString customers = QStringLiteral("frmCadaCliente");
    static inline const QString order = QStringLiteral("frmOSAbre");

    /// Every field of the record, as the first vehicle shows.
    static inline const Fields gol{
        {QStringLiteral("lblCodigo"), QStringLiteral("0001")},
        {QStringLiteral("txtCodCliente"), QStringLiteral("0001")},
        {QStringLiteral("lblNomeCliente"), QStringLiteral("MARIA")},
        {QStringLiteral("cboMarca"), QStringLiteral("GOL 1.0")},
        {QStringLiteral("txtAno"), QStringLiteral("2019/2020")},
        {QStringLiteral("txtCor"), QStringLiteral("Prata")},
        {QStringLiteral("txtPlaca"), QStringLiteral("ABC1D23")},
        {QStringLiteral("txtCombustivel"), QStringLiteral("FLEX")},
        {QStringLiteral("txtObservacoes"), QStringLiteral("RISCO NA PORTA")},
        {QStringLiteral("txtChassi"), QStringLiteral("9BWZZZ377VT004251")},
    };

    static inline const QStringList golRow{QStringLiteral("0001"),    QStringLiteral("MARIA"),
                                           QStringLiteral("GOL 1.0"), QStringLiteral("2019/2020"),
                                           QStringLiteral("Prata"),   QStringLiteral("ABC1D23"),
                                           QStringLiteral("FLEX"),    QStringLiteral("RISCO NA PORTA")};

    static void registerWindows()
    {
        registers::registerForms();
        workorders::registerForms();
    }

    void start()
    {
        begin();
        const qint32 maria = program_->customer(QStringLiteral("MARIA"));
        const qint32 antonio = program_->customer(QStringLiteral("ANTONIO"));
        program_->vehicle(maria, QStringLiteral("ABC1D23"));
        program_->vehicle(antonio, QStringLiteral("XYZ1234"), QStringLiteral("CELTA"));
        program_->vehicle(antonio, QStringLiteral("KLM9999"));
        program_->sql(QStringLiteral("UPDATE Veiculos SET Ano = '2019/2020', Cor = 'Prata', Combustivel = 'FLEX', "
                                     "Observacoes = 'RISCO NA PORTA', Chassi = '9BWZZZ377VT004251' WHERE Codigo = 1"));
        program_->sql(QStringLiteral("UPDATE Veiculos SET Ano = '2010/2011', Cor = 'PRETO', Combustivel = 'GASOLINA' "
                                     "WHERE Codigo = 2"));
        program_->sql(
            QStringLiteral("UPDATE Veiculos SET Ano = '2015/2015', Chassi = '9BGRD08X04G117974' WHERE Codigo = 3"));
    }

    /// Opens the register with all vehicles listed: CELTA, the GOL of ANTONIO, the GOL of MARIA.
    void openFull(int mode = 0)
    {
        open(mode);
        support::click(form_, QStringLiteral("btnTodos"));
        QCOMPARE(cadastro::columnOf(form_),
                 (QStringList{QStringLiteral("0002"), QStringLiteral("0003"), QStringLiteral("0001")}));
    }

    Rows vehicles() const { return program_->rows(QStringLiteral("SELECT * FROM Veiculos ORDER BY Codigo")); }
};
