#pragma once

#include "core/modulo.h"
#include "estimates/estimates.h"
#include "estimates/orcamento.h"
#include "platform/dao/database.h"
#include "platform/ui/form.h"
#include "platform/ui/forms.h"
#include "platform/ui/listview.h"
#include "registers/registers.h"
#include "support/boxes.h"
#include "support/cadastro.h"
#include "support/program.h"
#include "workorders/workorders.h"

#include <QTest>

#include <memory>

/// What the cases on the window that alters an estimate have in common: estimate 1 of somebody else, so that nothing is
/// right by accident, and estimate 2 of customer 2 with a registered part and a free line.
class AlteringTest : public QObject
{
protected:
    using Rows = std::vector<QStringList>;

    static inline const QString window = QStringLiteral("frmOSOrcaAltera");
    static inline const QString null = QStringLiteral("<Null>");
    static inline const QString notFound = QStringLiteral("Código do Orçamento não localizado");

    static void registerWindows()
    {
        estimates::registerForms();
        registers::registerForms();
        workorders::registerForms();
    }

    void start()
    {
        program_ = std::make_unique<support::Program>();
        boxes_ = std::make_unique<support::Boxes>();
        program_->customer(QStringLiteral("OUTRO"));
        program_->customer(QStringLiteral("MARIA"));
        program_->sql(QStringLiteral("UPDATE Clientes SET Fone1 = '(11) 5555-0002' WHERE Codigo = 2"));
        program_->part(QStringLiteral("FILTRO"), QStringLiteral("P"), QStringLiteral("30,25"));
        program_->part(QStringLiteral("OLEO"), QStringLiteral("P"), QStringLiteral("27,50"), false, 2);
        estimates::IncluiOrcamento({.marca = QStringLiteral("UNO"),
                                    .nome = QStringLiteral("OUTRO"),
                                    .valor = QStringLiteral("5,00"),
                                    .itens = {free(QStringLiteral("LAVAGEM"), QStringLiteral("5,00"))}});
        estimates::IncluiOrcamento({.marca = QStringLiteral("GOL 1.0"),
                                    .ano = QStringLiteral("2001/2002"),
                                    .codCliente = QStringLiteral("0002"),
                                    .nome = QStringLiteral("MARIA"),
                                    .fone = QStringLiteral("(11) 5555-0002"),
                                    .observacoes = QStringLiteral("RETORNA SEXTA"),
                                    .valor = QStringLiteral("70,50"),
                                    .itens = {oil(), free(QStringLiteral("SOLDA"), QStringLiteral("15,50"))}});
    }

    void stop()
    {
        boxes_.reset();
        program_.reset();
    }

    static documents::LinhaItem free(const QString &description, const QString &value)
    {
        return {QStringLiteral("0000"), QStringLiteral("A"), QStringLiteral("01"), description, value, value};
    }
    static documents::LinhaItem oil()
    {
        return {QStringLiteral("0002"), QStringLiteral("P"),     QStringLiteral("2,000"),
                QStringLiteral("OLEO"), QStringLiteral("27,50"), QStringLiteral("55,00")};
    }

    void open() { form_ = support::show(window); }

    void load(const QString &code) const { support::type(form_, QStringLiteral("txtCodOrcamento"), code); }

    /// The window with estimate 2.
    void openLoaded()
    {
        open();
        load(QStringLiteral("2"));
    }

    /// Closes the window without confirming anything.
    void leave() const
    {
        support::click(form_, QStringLiteral("btnVoltar"));
        QVERIFY(!cadastro::isOpen(window));
    }

    void add(const QString &quantity, const QString &description, const QString &value) const
    {
        support::type(form_, QStringLiteral("txtQuantidade"), quantity);
        support::type(form_, QStringLiteral("txtDescricao"), description);
        support::type(form_, QStringLiteral("txtValor"), value);
        support::click(form_, QStringLiteral("btnItemAdd"));
    }

    QString shown(const QString &name) const { return support::text(form_, name); }

    /// The header fields in the order of typing.
    QStringList header() const
    {
        QStringList texts;
        for (const auto *name : {"lblData", "txtCodCliente", "txtNome", "txtFone1", "cboMarca", "cboAno", "txtObs"}) {
            texts << shown(QString::fromLatin1(name));
        }
        return texts;
    }

    /// The buttons that write an item are disabled and say why.
    bool itemsLocked() const
    {
        const auto *add = support::controlOf(form_, QStringLiteral("btnItemAdd"));
        return !add->isEnabled() && add->toolTip().endsWith(QStringLiteral("Nenhum orçamento foi informado"));
    }

    Rows estimatesStored() const { return program_->rows(QStringLiteral("SELECT * FROM Orcamento")); }
    Rows itemsStored() const { return program_->rows(QStringLiteral("SELECT * FROM OrcaPecas")); }

    /// The items of estimate 2 but for its key.
    Rows items() const
    {
        return program_->rows(QStringLiteral(
            "SELECT Codigo, CodPeca, Quantidade, Descricao, ValorUnit, PSA FROM OrcaPecas WHERE CodOrca = 2"));
    }
    QString total() const
    {
        return program_->rows(QStringLiteral("SELECT Valor FROM Orcamento WHERE Codigo = 2")).front().front();
    }

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *form_ = nullptr;
};
