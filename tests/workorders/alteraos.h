#pragma once

#include "tests/workorders/janelaos.h"

#include "workorders/abertura.h"

/// What the cases on the window that alters an order have in common: order 2 with a row for each list, beside another
/// one.
class AlteringWindowTest : public OrderWindowTest
{
protected:
    static inline const QString altering = QStringLiteral("frmOSAltera");
    static inline const QString locked = QStringLiteral("Informe o número da ordem de serviço");
    static inline const QString closed = QStringLiteral("A ordem de serviço está fechada");

    void startWithOrders()
    {
        using namespace Qt::StringLiterals;
        start();
        program_->part(u"OLEO"_s, u"P"_s, u"27,55"_s, true, 2);
        program_->part(u"TROCA"_s, u"S"_s, u"50,00"_s);
        program_->vehicle(program_->customer(u"OUTRO"_s), u"XYZ0000"_s);
        program_->vehicle(program_->customer(u"MARIA"_s, u"500,00"_s), u"ABC1D23"_s, u"GOL 1.6"_s);
        program_->sql(u"UPDATE Clientes SET Fone1 = '(11) 1234-5678', Celular = '(11) 9999-8888' WHERE Codigo = 2"_s);
        program_->sql(u"UPDATE Veiculos SET Ano = '2019/2020', Cor = 'PRATA', Combustivel = 'FLEX' WHERE Codigo = 2"_s);
        workorders::NovaOrdem order{.codCliente = u"1"_s,
                                    .codVeiculo = u"1"_s,
                                    .km = {},
                                    .observacao = {},
                                    .valor = u"10,00"_s,
                                    .servicos = {},
                                    .mecanico = {},
                                    .itens = {{u"0000"_s, u"A"_s, u"01"_s, u"OUTRA"_s, u"10,00"_s, {}}}};
        workorders::AbreOrdem(order);
        order = {.codCliente = u"2"_s,
                 .codVeiculo = u"2"_s,
                 .km = u"98.500"_s,
                 .observacao = u"BARULHO"_s,
                 .valor = u"421,75"_s,
                 .servicos = u"REVISAO"_s,
                 .mecanico = u"JOAO"_s,
                 .itens = {{u"0001"_s, u"P"_s, u"2,500"_s, u"OLEO"_s, u"27,50"_s, {}},
                           {u"0000"_s, u"A"_s, u"01"_s, u"AVULSA"_s, u"3,00"_s, {}},
                           {u"0002"_s, u"S"_s, u"02"_s, u"TROCA"_s, u"50,00"_s, {}},
                           {u"0000"_s, u"Z"_s, u"01"_s, u"SOLDA"_s, u"50,00"_s, {}},
                           {u"0000"_s, u"X"_s, u"01"_s, u"GUINCHO"_s, u"200,00"_s, {}},
                           {u"0001"_s, u"K"_s, u"03"_s, u"OLEO"_s, u"0,00"_s, {}}}};
        workorders::AbreOrdem(order);
    }

    /// Opens the window and loads the order.
    void openOrder(const QString &layout = full, const QString &number = QStringLiteral("2"))
    {
        open(layout, 0, altering);
        support::type(form_, QStringLiteral("txtCodOS"), number);
    }

    /// Leaves the window without confirming.
    void leave()
    {
        support::click(form_, QStringLiteral("btnVoltar"));
        QVERIFY(!ui::Forms::instance().find(altering));
    }

    Rows items(int order = 2) const
    {
        return program_->rows(QStringLiteral("SELECT Codigo, CodPeca, Quantidade, Descricao, ValorUnit, PSA "
                                             "FROM OSPecas WHERE CodOS = %1")
                                  .arg(order));
    }
    QString stored(const QString &column) const
    {
        return program_->rows(QStringLiteral("SELECT %1 FROM OrdemServico WHERE Codigo = 2").arg(column))
            .front()
            .front();
    }
    bool isOffered(const QString &button) const { return at(button)->isEnabled(); }
};
