#pragma once

#include "registers/registers.h"
#include "tests/registers/caso.h"

/// What the cases on the supplier register have in common: the window, stand-ins for the windows that it works for, and
/// three suppliers: 1 ALFA PECAS with every column, 2 BETA with its name and state alone, 3 ACO FORTE with a few.
class SupplierCase : public QObject, protected cadastro::Case
{
protected:
    SupplierCase() : Case(window) {}

    using Rows = cadastro::Rows;
    using Fields = cadastro::Fields;

    static inline const QString window = QStringLiteral("frmCadaFornecedor");
    static inline const QString receipt = QStringLiteral("frmMoviEntradaPeca");
    static inline const QString query = QStringLiteral("frmRelaSelecaoNotasEntradas");

    /// Every field of the record, as the first supplier shows.
    static inline const Fields alfa{
        {QStringLiteral("lblCodigo"), QStringLiteral("0001")},
        {QStringLiteral("lblDataCadastro"), QStringLiteral("10/01/2020")},
        {QStringLiteral("txtNome"), QStringLiteral("ALFA PECAS")},
        {QStringLiteral("txtContato"), QStringLiteral("JOSÉ")},
        {QStringLiteral("txtEndereco"), QStringLiteral("RUA A")},
        {QStringLiteral("txtNumero"), QStringLiteral("12")},
        {QStringLiteral("txtComplemento"), QStringLiteral("SALA 2")},
        {QStringLiteral("txtBairro"), QStringLiteral("CENTRO")},
        {QStringLiteral("txtCidade"), QStringLiteral("SANTOS")},
        {QStringLiteral("cboEstado"), QStringLiteral("RJ")},
        {QStringLiteral("txtCEP"), QStringLiteral("11.010-100")},
        {QStringLiteral("txtPontoReferencia"), QStringLiteral("JUNTO DA PONTE")},
        {QStringLiteral("txtFone1"), QStringLiteral("(13) 3222-1111")},
        {QStringLiteral("txtFone2"), QStringLiteral("(13) 3222-2222")},
        {QStringLiteral("txtCelular"), QStringLiteral("(13) 9111-3333")},
        {QStringLiteral("txtCPF"), QStringLiteral("11222333000181")},
        {QStringLiteral("txtEmail"), QStringLiteral("vendas@alfa.com")},
        {QStringLiteral("txtObservacoes"), QStringLiteral("ENTREGA CEDO")},
    };

    static inline const QStringList alfaRow{QStringLiteral("0001"),           QStringLiteral("ALFA PECAS"),
                                            QStringLiteral("JOSÉ"),           QStringLiteral("(13) 3222-1111"),
                                            QStringLiteral("(13) 3222-2222"), QStringLiteral("(13) 9111-3333")};

    static void registerWindows()
    {
        registers::registerForms();
        cadastro::standIn(receipt, {QStringLiteral("txtCodFornecedor")});
        cadastro::standIn(query, {QStringLiteral("txtCodForn")});
    }

    void start()
    {
        begin();
        program_->sql(
            QStringLiteral("INSERT INTO Fornecedores (DataCadastro, Nome, Contato, Endereco, Numero, Complemento, "
                           "Bairro, Cidade, Estado, CEP, PontoReferencia, Fone1, Fone2, Celular, CNPJ, Email, "
                           "Observacoes) VALUES (#01/10/2020#, 'ALFA PECAS', 'JOSÉ', 'RUA A', 12, 'SALA 2', 'CENTRO', "
                           "'SANTOS', 'RJ', '11.010-100', 'JUNTO DA PONTE', '(13) 3222-1111', '(13) 3222-2222', "
                           "'(13) 9111-3333', '11222333000181', 'vendas@alfa.com', 'ENTREGA CEDO')"));
        program_->sql(QStringLiteral("INSERT INTO Fornecedores (Nome, Estado) VALUES ('BETA', 'SP')"));
        program_->sql(QStringLiteral("INSERT INTO Fornecedores (DataCadastro, Nome, Contato, Estado, Fone1, CNPJ) "
                                     "VALUES (#02/20/2021#, 'ACO FORTE', 'ANA', 'MG', '(31) 3333-4444', "
                                     "'52998224725')"));
    }

    /// Opens the register with all suppliers listed: ACO FORTE, ALFA PECAS, BETA.
    void openFull(int mode = 0)
    {
        open(mode);
        support::click(form_, QStringLiteral("btnTodos"));
        QCOMPARE(cadastro::columnOf(form_),
                 (QStringList{QStringLiteral("0003"), QStringLiteral("0001"), QStringLiteral("0002")}));
    }

    Rows suppliers() const { return program_->rows(QStringLiteral("SELECT * FROM Fornecedores ORDER BY Codigo")); }
};
