#include "core/modulo.h"
#include "estimates/estimates.h"
#include "finance/finance.h"
#include "platform/dao/database.h"
#include "platform/ui/form.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/shell.h"
#include "stock/stock.h"
#include "support/program.h"
#include "workorders/workorders.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace
{

/// A box and where its text goes: a column, or nowhere ("" for the table).
struct Row {
    QStringView window;
    QStringView box;
    QStringView table = {};
    QStringView column = {};
    int longer = 0; ///< a check of the window speaks of longer texts than the column's: what the box takes
};

constexpr int listLength = 250; ///< what the completion lists hold

constexpr std::array rows{
    Row{u"frmCadaCliente", u"txtNome", u"Clientes", u"Nome"},
    Row{u"frmCadaCliente", u"txtEndereco", u"Clientes", u"Endereco"},
    Row{u"frmCadaCliente", u"txtNumero", u"Clientes", u"Numero"},
    Row{u"frmCadaCliente", u"txtComplemento", u"Clientes", u"Complemento"},
    Row{u"frmCadaCliente", u"txtBairro", u"Clientes", u"Bairro"},
    Row{u"frmCadaCliente", u"txtCidade", u"Clientes", u"Cidade"},
    Row{u"frmCadaCliente", u"cboEstado", u"Clientes", u"Estado"},
    Row{u"frmCadaCliente", u"txtCEP", u"Clientes", u"CEP"},
    Row{u"frmCadaCliente", u"txtPontoReferencia", u"Clientes", u"PontoReferencia"},
    Row{u"frmCadaCliente", u"txtFone1", u"Clientes", u"Fone1"},
    Row{u"frmCadaCliente", u"txtFone2", u"Clientes", u"Fone2"},
    Row{u"frmCadaCliente", u"txtCelular", u"Clientes", u"Celular"},
    Row{u"frmCadaCliente", u"txtRG", u"Clientes", u"RG"},
    Row{u"frmCadaCliente", u"txtCPF", u"Clientes", u"CPF"},
    Row{u"frmCadaCliente", u"txtDataNascimento", u"Clientes", u"DataNascimento"},
    Row{u"frmCadaCliente", u"txtEmail", u"Clientes", u"Email"},
    Row{u"frmCadaCliente", u"txtLimite", u"Clientes", u"LimiteCredito"},
    Row{u"frmCadaCliente", u"txtObservacoes", u"Clientes", u"Observacoes"},
    Row{u"frmCadaCliente", u"txtTexto"},

    Row{u"frmCadaVeiculos", u"txtCodCliente", u"Veiculos", u"CodCliente"},
    Row{u"frmCadaVeiculos", u"cboMarca", u"Veiculos", u"MarcaModelo"},
    Row{u"frmCadaVeiculos", u"txtAno", u"Veiculos", u"Ano"},
    Row{u"frmCadaVeiculos", u"txtCor", u"Veiculos", u"Cor"},
    Row{u"frmCadaVeiculos", u"txtPlaca", u"Veiculos", u"Placas"},
    Row{u"frmCadaVeiculos", u"txtCombustivel", u"Veiculos", u"Combustivel"},
    Row{u"frmCadaVeiculos", u"txtObservacoes", u"Veiculos", u"Observacoes"},
    Row{u"frmCadaVeiculos", u"txtChassi", u"Veiculos", u"Chassi"},
    Row{u"frmCadaVeiculos", u"txtTexto"},

    Row{u"frmCadaPecas", u"txtNome", u"Pecas", u"Nome"},
    Row{u"frmCadaPecas", u"cboMarca", u"Pecas", u"MarcaModelo", listLength}, // "Marca Inválida" above 200
    Row{u"frmCadaPecas", u"txtCusto", u"Pecas", u"ValorCusto"},
    Row{u"frmCadaPecas", u"txtVenda", u"Pecas", u"ValorVenda"},
    Row{u"frmCadaPecas", u"txtEstoque", u"Pecas", u"EstoqueMinimo"},
    Row{u"frmCadaPecas", u"txtEstoqueAtual", u"Estoque", u"Estoque"},
    Row{u"frmCadaPecas", u"txtCodExterno", u"Pecas", u"CodExterno"},
    Row{u"frmCadaPecas", u"txtICMS", u"Pecas", u"ICMS"},
    Row{u"frmCadaPecas", u"txtClass", u"Pecas", u"ClassFiscal"},
    Row{u"frmCadaPecas", u"txtTexto"},

    Row{u"frmCadaFornecedor", u"txtNome", u"Fornecedores", u"Nome"},
    Row{u"frmCadaFornecedor", u"txtContato", u"Fornecedores", u"Contato"},
    Row{u"frmCadaFornecedor", u"txtEndereco", u"Fornecedores", u"Endereco"},
    Row{u"frmCadaFornecedor", u"txtNumero", u"Fornecedores", u"Numero"},
    Row{u"frmCadaFornecedor", u"txtComplemento", u"Fornecedores", u"Complemento"},
    Row{u"frmCadaFornecedor", u"txtBairro", u"Fornecedores", u"Bairro"},
    Row{u"frmCadaFornecedor", u"txtCidade", u"Fornecedores", u"Cidade"},
    Row{u"frmCadaFornecedor", u"cboEstado", u"Fornecedores", u"Estado"},
    Row{u"frmCadaFornecedor", u"txtCEP", u"Fornecedores", u"CEP"},
    Row{u"frmCadaFornecedor", u"txtPontoReferencia", u"Fornecedores", u"PontoReferencia"},
    Row{u"frmCadaFornecedor", u"txtFone1", u"Fornecedores", u"Fone1"},
    Row{u"frmCadaFornecedor", u"txtFone2", u"Fornecedores", u"Fone2"},
    Row{u"frmCadaFornecedor", u"txtCelular", u"Fornecedores", u"Celular"},
    Row{u"frmCadaFornecedor", u"txtCPF", u"Fornecedores", u"CNPJ"},
    Row{u"frmCadaFornecedor", u"txtEmail", u"Fornecedores", u"Email"},
    Row{u"frmCadaFornecedor", u"txtObservacoes", u"Fornecedores", u"Observacoes"},
    Row{u"frmCadaFornecedor", u"txtTexto"},

    Row{u"frmCadaFast", u"txtCodCliente", u"Veiculos", u"CodCliente"},
    Row{u"frmCadaFast", u"txtNome", u"Clientes", u"Nome"},
    Row{u"frmCadaFast", u"txtEndereco", u"Clientes", u"Endereco"},
    Row{u"frmCadaFast", u"txtNumero", u"Clientes", u"Numero"},
    Row{u"frmCadaFast", u"txtComplemento", u"Clientes", u"Complemento"},
    Row{u"frmCadaFast", u"txtBairro", u"Clientes", u"Bairro"},
    Row{u"frmCadaFast", u"txtCidade", u"Clientes", u"Cidade"},
    Row{u"frmCadaFast", u"cboEstado", u"Clientes", u"Estado"},
    Row{u"frmCadaFast", u"txtCEP", u"Clientes", u"CEP"},
    Row{u"frmCadaFast", u"txtFone1", u"Clientes", u"Fone1"},
    Row{u"frmCadaFast", u"txtCelular", u"Clientes", u"Celular"},
    Row{u"frmCadaFast", u"cboMarca", u"Veiculos", u"MarcaModelo"},
    Row{u"frmCadaFast", u"txtAno", u"Veiculos", u"Ano"},
    Row{u"frmCadaFast", u"txtCor", u"Veiculos", u"Cor"},
    Row{u"frmCadaFast", u"txtPlaca", u"Veiculos", u"Placas"},
    Row{u"frmCadaFast", u"txtCombustivel", u"Veiculos", u"Combustivel"},

    Row{u"frmOSAbre", u"txtCodVeiculo"}, // a code, a plate or a chassis number, and only the code found is written
    Row{u"frmOSAbre", u"txtKm", u"OrdemServico", u"KM"},
    Row{u"frmOSAbre", u"txtObs", u"OrdemServico", u"Observacao"},
    Row{u"frmOSAbre", u"txtServicos", u"OrdemServico", u"Descricao"},
    Row{u"frmOSAbre", u"txtMecanico", u"OrdemServico", u"Mecanico"},
    Row{u"frmOSAbre", u"txtCodPeca"}, // a code or an external code, and only the code found is written
    Row{u"frmOSAbre", u"txtQuantidade", u"OSPecas", u"Quantidade"},
    Row{u"frmOSAbre", u"txtDescricao", u"OSPecas", u"Descricao", listLength}, // refused above 200
    Row{u"frmOSAbre", u"txtValor", u"OSPecas", u"ValorUnit"},

    Row{u"frmOSOrcaNovo", u"txtCodCliente", u"Orcamento", u"CodCliente"},
    Row{u"frmOSOrcaNovo", u"txtNome", u"Orcamento", u"NomeCliente"},
    Row{u"frmOSOrcaNovo", u"txtFone1", u"Orcamento", u"Fone"},
    Row{u"frmOSOrcaNovo", u"cboMarca", u"Orcamento", u"MarcaModelo"},
    Row{u"frmOSOrcaNovo", u"cboAno", u"Orcamento", u"Ano"},
    Row{u"frmOSOrcaNovo", u"txtObs", u"Orcamento", u"Observacoes"},
    Row{u"frmOSOrcaNovo", u"txtCodPeca"}, // a code or an external code, and only the code found is written
    Row{u"frmOSOrcaNovo", u"txtQuantidade", u"OrcaPecas", u"Quantidade"},
    Row{u"frmOSOrcaNovo", u"txtDescricao", u"OrcaPecas", u"Descricao", listLength}, // refused above 200
    Row{u"frmOSOrcaNovo", u"txtValor", u"OrcaPecas", u"ValorUnit"},
    Row{u"frmOSAltera", u"txtCodOS"}, // a code, and only the one that is found is altered
    Row{u"frmOSAltera", u"txtDataPg", u"OrdemServico", u"DataPagto"},
    Row{u"frmOSAltera", u"txtFormaPg", u"OrdemServico", u"FormaPagto"},
    Row{u"frmOSAltera", u"txtKm", u"OrdemServico", u"KM"},
    Row{u"frmOSAltera", u"txtObs", u"OrdemServico", u"Observacao"},
    Row{u"frmOSAltera", u"txtServicos", u"OrdemServico", u"Descricao"},
    Row{u"frmOSAltera", u"txtMecanico", u"OrdemServico", u"Mecanico"},
    Row{u"frmOSAltera", u"txtCodPeca"},
    Row{u"frmOSAltera", u"txtQuantidade", u"OSPecas", u"Quantidade"},
    Row{u"frmOSAltera", u"txtDescricao", u"OSPecas", u"Descricao", listLength}, // refused above 200
    Row{u"frmOSAltera", u"txtValor", u"OSPecas", u"ValorUnit"},
    Row{u"frmOSAltera", u"txtHorasTrabalhadas"}, // the calculator writes nothing
    Row{u"frmOSAltera", u"txtCustoPecas"},
    Row{u"frmOSAltera", u"txtPDespesa"},
    Row{u"frmOSAltera", u"txtPTaxaLucro"},
    Row{u"frmOSAltera", u"txtPISS"},
    Row{u"frmOSAltera", u"txtPSimples"},

    Row{u"frmOSOrcaAltera", u"txtCodOrcamento"}, // looked up, never written
    Row{u"frmOSOrcaAltera", u"txtCodCliente", u"Orcamento", u"CodCliente"},
    Row{u"frmOSOrcaAltera", u"txtNome", u"Orcamento", u"NomeCliente"},
    Row{u"frmOSOrcaAltera", u"txtFone1", u"Orcamento", u"Fone"},
    Row{u"frmOSOrcaAltera", u"cboMarca", u"Orcamento", u"MarcaModelo"},
    Row{u"frmOSOrcaAltera", u"cboAno", u"Orcamento", u"Ano"},
    Row{u"frmOSOrcaAltera", u"txtObs", u"Orcamento", u"Observacoes"},
    Row{u"frmOSOrcaAltera", u"txtCodPeca"}, // a code or an external code, and only the code found is written
    Row{u"frmOSOrcaAltera", u"txtQuantidade", u"OrcaPecas", u"Quantidade"},
    Row{u"frmOSOrcaAltera", u"txtDescricao", u"OrcaPecas", u"Descricao", listLength}, // refused above 200
    Row{u"frmOSOrcaAltera", u"txtValor", u"OrcaPecas", u"ValorUnit"},

    Row{u"frmOSConsulta", u"txtTexto"},
    Row{u"frmOSOrcaConsulta", u"txtTexto"},

    Row{u"frmNota", u"txtOS"}, // a code that is looked up

    Row{u"frmOSFormaPagto", u"txtDesconto", u"Caixa", u"Saida"},
    Row{u"frmOSFormaPagto", u"txtValor_0", u"Caixa", u"Entrada"},
    Row{u"frmOSFormaPagto", u"txtBanco_1", u"Cheques", u"Banco"},
    Row{u"frmOSFormaPagto", u"txtConta_1", u"Cheques", u"Conta"},
    Row{u"frmOSFormaPagto", u"txtNumCheque", u"Cheques", u"Numero"},
    Row{u"frmOSFormaPagto", u"txtValor_1", u"Cheques", u"Valor"},
    Row{u"frmOSFormaPagto", u"txtData_1", u"Cheques", u"Vencimento"},
    Row{u"frmOSFormaPagto", u"txtBanco_3", u"Cheques", u"Banco"},
    Row{u"frmOSFormaPagto", u"txtConta_3", u"Cheques", u"Conta"},
    Row{u"frmOSFormaPagto", u"txtData_4", u"Fiados", u"Vencimento"},
    Row{u"frmOSFormaPagto", u"txtCodCliente", u"Fiados", u"CodCliente"},
    Row{u"frmOSFormaPagto", u"txtParcela_5"}, // a number of two digits in a description
    Row{u"frmOSFormaPagto", u"txtData_5", u"Cheques", u"Vencimento"},
    Row{u"frmOSFormaPagto", u"txtValor_5", u"Cheques", u"Valor"},
    Row{u"frmOSFormaPagto", u"txtBanco_5", u"Cheques", u"Banco"},
    Row{u"frmOSFormaPagto", u"txtConta_5", u"Cheques", u"Conta"},

    Row{u"frmMoviCheques", u"txtBanco", u"Cheques", u"Banco"},
    Row{u"frmMoviCheques", u"txtConta", u"Cheques", u"Conta"},
    Row{u"frmMoviCheques", u"txtNumCheque", u"Cheques", u"Numero"},
    Row{u"frmMoviCheques", u"txtValor", u"Cheques", u"Valor"},
    Row{u"frmMoviCheques", u"txtData", u"Cheques", u"Vencimento"},
    Row{u"frmMoviCheques", u"txtObs", u"Cheques", u"Observacoes"},

    Row{u"frmMoviEstoque", u"txtCodPeca"}, // a code or an external code, and only the code found is written
    Row{u"frmMoviEstoque", u"txtData", u"Estoque", u"Data"},
    Row{u"frmMoviEstoque", u"txtDescricao", u"Estoque", u"Descricao"},
    Row{u"frmMoviEstoque", u"txtValor", u"Estoque", u"Entrada"},
    Row{u"frmMoviEntradaPeca", u"txtCodFornecedor", u"NotasEntradas", u"CodForn"},
    Row{u"frmMoviEntradaPeca", u"txtObs", u"NotasEntradas", u"Observacoes"},
    Row{u"frmMoviEntradaPeca", u"txtCodPeca"}, // a code or an external code, and only the code found is written
    Row{u"frmMoviEntradaPeca", u"txtQuantidade", u"NotasPecas", u"Quantidade"},
    Row{u"frmMoviEntradaPeca", u"txtDescricao", u"NotasPecas", u"Descricao", listLength}, // refused above 200
    Row{u"frmMoviEntradaPeca", u"txtValor", u"NotasPecas", u"ValorUnit"},
    Row{u"frmRelaSelecaoNotasEntradas", u"txtCodForn"}, // a code that is looked up
    Row{u"frmMoviFiados", u"txtTexto"},
    Row{u"frmMoviFiadosConta", u"txtData", u"ContaFiado", u"Data"},
    Row{u"frmMoviFiadosConta", u"txtDescricao", u"ContaFiado", u"Descricao"},
    Row{u"frmMoviFiadosConta", u"txtValor", u"ContaFiado", u"Entrada"},

    Row{u"frmMoviCaixa", u"txtData", u"Caixa", u"Data"},
    Row{u"frmMoviCaixa", u"txtDescricao", u"Caixa", u"Descricao"},
    Row{u"frmMoviCaixa", u"txtValor", u"Caixa", u"Entrada"},
    Row{u"frmMoviCaixa", u"txtTexto"},

    Row{u"frmMoviLivroOrigem", u"txtData", u"LivroOrigem", u"Data"},
    Row{u"frmMoviLivroOrigem", u"txtOrigem", u"LivroOrigem", u"Origem"},
    Row{u"frmMoviLivroOrigem", u"txtDinheiro", u"LivroOrigem", u"Dinheiro"},
    Row{u"frmMoviLivroOrigem", u"txtAvista", u"LivroOrigem", u"Avista"},
    Row{u"frmMoviLivroOrigem", u"txtAPrazo", u"LivroOrigem", u"Aprazo"},
    Row{u"frmMoviLivroOrigem", u"txtDuplicata", u"LivroOrigem", u"Duplicata"},

    Row{u"frmMoviContasPR", u"txtData", u"ContasReceber", u"Data"},
    Row{u"frmMoviContasPR", u"txtDescricao", u"ContasReceber", u"Descricao"},
    Row{u"frmMoviContasPR", u"txtValor", u"ContasReceber", u"Valor"},
    Row{u"frmMoviContasPR", u"txtVencimento", u"ContasReceber", u"Vencimento"},
    Row{u"frmMoviContasPRBaixa", u"txtVencimento", u"ContasReceber", u"DataPagto"},
    Row{u"frmMoviContasPRBaixa", u"txtDataPagto", u"ContasReceber", u"DataPagto"},
    Row{u"frmMoviContasPRBaixa", u"txtValor", u"ContasReceber", u"Valor"},
    Row{u"frmMoviContasPRBaixa", u"txtNovaData", u"ContasReceber", u"Vencimento"},

    Row{u"frmSenha", u"txtCodigo"},
    Row{u"frmSenha", u"txtSenha"},
    Row{u"frmSenhaManut", u"txtCodigo", u"Senha", u"Codigo"},
    Row{u"frmSenhaManut", u"txtNome", u"Senha", u"Nome"},
    Row{u"frmSenhaManut", u"txtSenha"}, // scrambled it is longer
    Row{u"frmSenhaManut", u"txtConfirma"},

    Row{u"frmManual", u"txtLocalizar"},
    Row{u"frmConfigOrcamento", u"txtLinha1"}, // no column: a setting gives back 48 characters
    Row{u"frmConfigOrcamento", u"txtLinha2"},
};

QString nameOf(const Row &row)
{
    return row.window + u'.' + row.box;
}

bool isInside(const QWidget *widget)
{
    const auto *parent = widget->parentWidget();
    return qobject_cast<const QComboBox *>(parent) || qobject_cast<const QAbstractSpinBox *>(parent);
}

/// The boxes of a window that a user can type into.
QStringList boxesOf(const ui::Form &form)
{
    QStringList names;
    for (const auto *line : form.findChildren<QLineEdit *>()) {
        if (!isInside(line) && !line->isReadOnly()) {
            names << line->objectName();
        }
    }
    for (const auto *lines : form.findChildren<QPlainTextEdit *>()) {
        if (!lines->isReadOnly()) {
            names << lines->objectName();
        }
    }
    for (const auto *combo : form.findChildren<QComboBox *>()) {
        if (combo->isEditable()) {
            names << combo->objectName();
        }
    }
    return names;
}

/// How much of a long text the box takes.
qsizetype taken(QWidget *box)
{
    ui::setTextOf(box, QString(1000, u'7'));
    return ui::textOf(box).size();
}

} // namespace

/// No box takes a text that ends the program where it is written.
class TstCaixas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init()
    {
        program_ = std::make_unique<support::Program>();
        program_->originBook();
    }
    void cleanup() { program_.reset(); }

    void everyBoxIsToldHere_data();
    void everyBoxIsToldHere();
    void aBoxTakesWhatItsColumnHolds_data();
    void aBoxTakesWhatItsColumnHolds();

private:
    std::unique_ptr<support::Program> program_;
};

void TstCaixas::initTestCase()
{
    registers::registerForms();
    reports::registerForms();
    shell::registerForms();
    stock::registerForms();
    estimates::registerForms();
    finance::registerForms();
    workorders::registerForms();
}

void TstCaixas::everyBoxIsToldHere_data()
{
    QTest::addColumn<QString>("window");
    for (const auto &window : ui::Forms::instance().names()) {
        if (window != u"frmSplash") { // opens what comes behind it, and has no box
            QTest::newRow(qPrintable(window)) << window;
        }
    }
}

void TstCaixas::everyBoxIsToldHere()
{
    QFETCH(QString, window);
    auto boxes = boxesOf(*ui::Forms::instance().Load(window));
    for (const Row &row : rows) {
        if (row.window == window) {
            QVERIFY2(boxes.removeOne(row.box.toString()), qPrintable(nameOf(row)));
        }
    }
    QCOMPARE(boxes, QStringList());
}

void TstCaixas::aBoxTakesWhatItsColumnHolds_data()
{
    QTest::addColumn<int>("row");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!rows.at(i).table.isEmpty()) {
            QTest::newRow(qPrintable(nameOf(rows.at(i)))) << int(i);
        }
    }
}

void TstCaixas::aBoxTakesWhatItsColumnHolds()
{
    QFETCH(int, row);
    const Row &bound = rows.at(std::size_t(row));
    const auto table = core::DBDados->OpenRecordset(bound.table.toString());
    const auto field = table.field(table.fieldPlace(bound.column));
    auto *form = ui::Forms::instance().Load(bound.window.toString());
    auto *box = support::controlOf(form, bound.box.toString());
    if (field.type == dao::FieldType::Text) {
        QCOMPARE(taken(box), bound.longer > 0 ? bound.longer : field.size);
    } else {
        QVERIFY(taken(box) > 0); // a number or a date: its length says nothing
    }
}

TARVELO_TEST_MAIN(TstCaixas)
#include "tst_caixas.moc"
