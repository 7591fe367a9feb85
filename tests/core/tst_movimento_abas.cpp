#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "core/movimento.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/controls.h"
#include "platform/ui/listview.h"
#include "support/boxes.h"
#include "support/cadastro.h"

#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;
using namespace core;
using support::click;
using support::key;
using support::text;
using support::type;

namespace
{

using Linhas = cadastro::Rows;

/// The controls of a window one below the other, each of the kind that its name tells.
void montaControles(QWidget *janela, const QStringList &nomes)
{
    auto *coluna = janela->layout() != nullptr ? static_cast<QVBoxLayout *>(janela->layout()) : new QVBoxLayout(janela);
    for (const QString &nome : nomes) {
        QWidget *controle = nullptr;
        if (nome.startsWith(u"btn")) {
            controle = new QPushButton(nome.mid(3), janela);
        } else if (nome.startsWith(u"lbl")) {
            controle = new QLabel(janela);
        } else if (nome.startsWith(u"Lista")) {
            controle = new ui::ListView(janela);
        } else if (nome.startsWith(u"cbo")) {
            auto *combo = new QComboBox(janela);
            combo->setEditable(true);
            controle = combo;
        } else if (nome == u"txtDataInicio" || nome == u"txtDataFim") {
            controle = new ui::DTPicker(janela);
        } else {
            controle = new QLineEdit(janela);
        }
        controle->setObjectName(nome);
        coluna->addWidget(controle);
    }
}

// --- accounts: a table a tab, totals below the rows, a key that settles

std::optional<runtime::Value> abertaNaInclusao(const QString & /*texto*/, Gravacao gravacao)
{
    return gravacao == Gravacao::Inclusao ? std::optional<runtime::Value>(false) : std::nullopt;
}

bool paga(const dao::Recordset &linha)
{
    return Verdadeiro(linha.value(u"Pago"));
}

constexpr std::array colunasDeContas{
    ColunaLista{u"", 280, u"Codigo", comoCodigo},
    ColunaLista{u"Data", 1300, u"Data", comoData},
    ColunaLista{u"Descrição", 3200, u"Descricao", comoEsta},
    ColunaLista{u"Valor", 1200, u"Valor", comoValor, Qt::AlignRight},
    ColunaLista{u"Vencimento", 1300, u"Vencimento", comoData},
    ColunaLista{u"Pago", 700, u"Pago", comoSimNao},
};
constexpr std::array somasDeContas{Soma{u"Valor"}, Soma{u"Valor", paga}};
constexpr std::array<QStringView, 3> semContas{u"", u"", u"Registro Não Localizado"};
constexpr Lista listaDeContas{.colunas = colunasDeContas, .somas = somasDeContas, .vazia = semContas};

constexpr std::array tabelasDeContas{
    TabelaMovimento{.tabela = u"ContasReceber",
                    .consulta = u"SELECT * FROM ContasReceber WHERE Vencimento BETWEEN ",
                    .consultaFim = u" ORDER BY Vencimento, Codigo",
                    .lista = listaDeContas,
                    .controleLista = u"Lista_0"},
    TabelaMovimento{.tabela = u"ContasPagar",
                    .consulta = u"SELECT * FROM ContasPagar WHERE Vencimento BETWEEN ",
                    .consultaFim = u" ORDER BY Vencimento, Codigo",
                    .lista = listaDeContas,
                    .controleLista = u"Lista_1"},
};

constexpr RegrasDaData dataComum{.saida = SaidaDaData::FormataDatas};
constexpr RegrasDaData mesQueVem{.mesesDoF1 = 1, .saida = SaidaDaData::FormataDatas};

constexpr std::array camposDeContas{
    Campo{.controle = u"txtData", .coluna = u"Data", .grava = comoTexto, .data = dataComum},
    Campo{
        .controle = u"cboDescricao", .coluna = u"Descricao", .grava = comoTexto, .lista = ListaCombo::DescricaoContas},
    Campo{.controle = u"txtValor",
          .coluna = u"Valor",
          .grava = comoTexto,
          .tecla = SoDecimais,
          .mascara = TipoMascara::Valor},
    Campo{.controle = u"txtVencimento", .coluna = u"Vencimento", .grava = comoTexto, .data = mesQueVem},
    Campo{.controle = {}, .coluna = u"Pago", .grava = abertaNaInclusao},
};

constexpr std::array verificacoesDeContas{
    Verificacao{u"txtData", dataValida, u"Data Inválida"},
    Verificacao{u"cboDescricao", naoVazio, u"Descrição Inválida"},
    Verificacao{u"txtValor", numerico, u"Valor Inválido"},
    Verificacao{u"txtVencimento", deHojeEmDiante, u"Data de Vencimento Já Passou"},
};

constexpr Movimento contas{
    .janela = u"frmContas",
    .titulo = u" - [Contas]",
    .tabelas = tabelasDeContas,
    .campos = camposDeContas,
    .verificacoes = verificacoesDeContas,
    .periodo = Periodo{.diasAntes = 15, .diasDepois = 45},
    .travado = u"tabContas",
    .teclaP = true,
};

/// What its table can't say: which tab is in front, the totals, and what the key does.
class JanelaContas : public JanelaMovimento
{
public:
    JanelaContas() : JanelaMovimento(contas)
    {
        auto *coluna = new QVBoxLayout(this);
        abas_ = new QTabWidget(this);
        abas_->setObjectName(u"tabContas"_s);
        for (const QString &nome : {u"Lista_0"_s, u"Lista_1"_s}) {
            auto *aba = new QWidget(abas_);
            montaControles(aba, {nome});
            abas_->addTab(aba, nome);
        }
        coluna->addWidget(abas_);
        montaControles(this, {u"txtDataInicio"_s, u"txtDataFim"_s, u"btnPreenche"_s, u"lblCodigo"_s, u"txtData"_s,
                              u"cboDescricao"_s, u"btnDescricaoAdd"_s, u"btnDescricaoRemove"_s, u"txtValor"_s,
                              u"txtVencimento"_s, u"btnIncluir"_s, u"btnAlterar"_s, u"btnExcluir"_s, u"btnVoltar"_s});
        ligaMovimento();
    }

protected:
    const TabelaMovimento &tabela() const override
    {
        return tabelasDeContas.at(static_cast<std::size_t>(abas_->currentIndex()));
    }

    void depoisDePreencher(const Somas &somas, bool vazia) override
    {
        if (!vazia) {
            lista().addItem({}, {{}, u"Total de Contas:"_s, runtime::Format(somas[0], mascaraValor)});
            lista().addItem({}, {{}, u"Total de Contas Pagas:"_s, runtime::Format(somas[1], mascaraValor)});
        }
    }

    void teclaP(const ui::ListItem &linha) override
    {
        DBDados->Execute(u"UPDATE "_s + tabela().tabela + u" SET Pago = True WHERE Codigo = "_s + linha.text());
        preenche();
    }

private:
    QTabWidget *abas_ = nullptr;
};

// --- a day book: a click copies the row, the change is written at once, the deletion has a statement of its own

constexpr std::array colunasDoDiario{
    ColunaLista{u"Código", 900, u"Codigo", comoCodigo},
    ColunaLista{u"Data", 1300, u"Data", comoData},
    ColunaLista{u"Origem", 3200, u"Origem", comoEsta},
};
constexpr std::array tabelasDoDiario{TabelaMovimento{
    .tabela = u"Diario",
    .consulta = u"SELECT * FROM Diario ORDER BY Codigo",
    .lista = {.colunas = colunasDoDiario},
    .exclusao = u"DELETE * FROM Combos WHERE Codigo = ",
}};
constexpr std::array camposDoDiario{
    Campo{.controle = u"txtData", .coluna = u"Data", .grava = comoTexto, .data = dataComum},
    Campo{.controle = u"txtOrigem", .coluna = u"Origem", .grava = comoTexto},
};
constexpr Movimento diario{
    .janela = u"frmDiario",
    .titulo = u" - [Diário]",
    .tabelas = tabelasDoDiario,
    .campos = camposDoDiario,
    .periodo = {},
    .cliqueCopia = true,
    .naoLocalizado = u"Código Não Localizado",
};

class JanelaDiario : public JanelaMovimento
{
public:
    JanelaDiario() : JanelaMovimento(diario)
    {
        montaControles(this, {u"Lista"_s, u"lblCodigo"_s, u"txtData"_s, u"txtOrigem"_s, u"btnIncluir"_s,
                              u"btnAlterar"_s, u"btnExcluir"_s, u"btnVoltar"_s});
        ligaMovimento();
    }
};

// --- an account of one owner: the row is the one that is selected, and only the owner's rows are recalculated

constexpr std::array colunasDaConta{
    ColunaLista{u"", 280, u"Codigo", comoCodigo},
    ColunaLista{u"Data", 1300, u"Data", comoData},
    ColunaLista{u"Descrição", 3200, u"Descricao", comoEsta},
    ColunaLista{u"Entrada", 1500, u"Entrada", comoValorOuBranco, Qt::AlignRight},
    ColunaLista{u"Saída", 1500, u"Saida", comoValorOuBranco, Qt::AlignRight},
    ColunaLista{u"Saldo", 1500, u"Saldo", comoValor, Qt::AlignRight},
};
constexpr std::array tabelasDaConta{TabelaMovimento{
    .tabela = u"ContaFiado",
    .consulta = u"SELECT * FROM ContaFiado WHERE CodCliente = ",
    .consultaFim = u" ORDER BY Data, Codigo",
    .lista = {.colunas = colunasDaConta},
    .razao = &razaoContaFiado,
}};
constexpr std::array camposDaConta{
    Campo{.controle = u"txtData", .coluna = u"Data", .grava = comoTexto, .data = dataComum},
    Campo{.controle = u"txtDescricao", .coluna = u"Descricao", .grava = comoTexto},
    Campo{.controle = u"txtValor", .coluna = {}, .tecla = SoDecimais, .mascara = TipoMascara::Valor},
};
constexpr std::array verificacoesDaConta{Verificacao{u"txtValor", numerico, u"Valor Inválido"}};
constexpr Movimento conta{
    .janela = u"frmConta",
    .titulo = u" - [Conta]",
    .tabelas = tabelasDaConta,
    .campos = camposDaConta,
    .verificacoes = verificacoesDaConta,
    .periodo = {},
    .codigo = {},
};

class JanelaConta : public JanelaMovimento
{
public:
    JanelaConta() : JanelaMovimento(conta)
    {
        montaControles(this, {u"lblCodigo"_s, u"Lista"_s, u"txtData"_s, u"txtDescricao"_s, u"txtValor"_s,
                              u"btnIncluir"_s, u"btnAlterar"_s, u"btnExcluir"_s, u"btnVoltar"_s});
        for (const QString &nome : {u"optEntrada"_s, u"optSaida"_s}) {
            auto *opcao = new QRadioButton(nome, this);
            opcao->setObjectName(nome);
            layout()->addWidget(opcao);
        }
        campos().poeTexto(u"optEntrada", u"-1"_s);
        campos().poeTexto(u"lblCodigo", u"0001"_s);
        ligaMovimento();
    }

protected:
    QString dono() const override { return campos().texto(u"lblCodigo"); }
    QString consulta() const override { return tabela().consulta + dono() + tabela().consultaFim; }
};

// --- a list that is only looked at: no boxes and no commands, but the key

constexpr std::array colunasPendentes{
    ColunaLista{u"", 280, u"Codigo", comoCodigo},
    ColunaLista{u"Cód. O.S.", 1200, u"CodOs", comoCodigo},
    ColunaLista{u"Pago", 500, u"Pago", comoSimNao},
};
constexpr std::array tabelasPendentes{TabelaMovimento{
    .tabela = u"Fiados",
    .consulta = u"SELECT * FROM Fiados ORDER BY Vencimento",
    .lista = {.colunas = colunasPendentes},
}};
constexpr Movimento pendentes{
    .janela = u"frmPendentes",
    .titulo = u" - [Pendentes]",
    .tabelas = tabelasPendentes,
    .campos = {},
    .periodo = {},
    .codigo = {},
    .teclaP = true,
};

class JanelaPendentes : public JanelaMovimento
{
public:
    JanelaPendentes() : JanelaMovimento(pendentes)
    {
        montaControles(this, {u"Lista"_s, u"btnVoltar"_s});
        ligaMovimento();
    }

protected:
    void teclaP(const ui::ListItem &linha) override
    {
        DBDados->Execute(u"UPDATE Fiados SET Pago = True WHERE Codigo = "_s + linha.text());
        preenche();
    }
};

} // namespace

/// Movement windows beside the ledger of cash: tables by tab, marks by the table, owners, other ways to change a row.
class TstMovimentoAbas : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void aTabIsATable();
    void theDueDateIsAMonthOn();
    void theListOfTheDescriptionsIsKept();
    void aNewRowHasWhatNoBoxHolds();
    void theTotalsStandBelowTheRows();
    void aRowOfTotalsIsNoRow();
    void aPeriodWithoutRowsSaysSo();
    void changesTheRowOfItsTab();
    void theTabsAreLockedWhileARowIsChanged();
    void theKeyActsOnRowsWithACode();

    void aClickCopiesTheRow();
    void aChangeIsWrittenAtOnce();
    void tellsOfARowThatIsGone();
    void deletesByItsOwnStatement();

    void changesTheSelectedRowOfAnOwner();
    void recalculatesTheOwnerAlone();

    void aListWithoutCommandsHasItsKey();

private:
    void abre(const QString &janela) { janela_ = cadastro::open(janela); }
    void abreContas();
    void conta(const QString &tabela, const QString &descricao, const QString &valor, bool paga = false);
    Linhas linhas(const QString &nome) const;
    void clicaLinha(const QString &lista, int linha);

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *janela_ = nullptr;
};

void TstMovimentoAbas::initTestCase()
{
    ui::Forms::instance().add(u"frmContas"_s, [] { return new JanelaContas; });
    ui::Forms::instance().add(u"frmDiario"_s, [] { return new JanelaDiario; });
    ui::Forms::instance().add(u"frmConta"_s, [] { return new JanelaConta; });
    ui::Forms::instance().add(u"frmPendentes"_s, [] { return new JanelaPendentes; });
}

void TstMovimentoAbas::init()
{
    program_ = std::make_unique<support::Program>();
    program_->sql(u"CREATE TABLE Diario (Codigo COUNTER, Data DATETIME, Origem TEXT(100))"_s);
    boxes_ = std::make_unique<support::Boxes>();
}

void TstMovimentoAbas::cleanup()
{
    boxes_.reset();
    program_.reset();
}

void TstMovimentoAbas::conta(const QString &tabela, const QString &descricao, const QString &valor, bool paga)
{
    program_->sql(u"INSERT INTO %1 (Data, Descricao, Valor, Vencimento, Pago) VALUES (#05/10/2024#, '%2', %3, "
                  "#05/20/2024#, %4)"_s.arg(tabela, descricao, valor, paga ? u"True"_s : u"False"_s));
}

void TstMovimentoAbas::abreContas()
{
    conta(u"ContasReceber"_s, u"CARNÊ"_s, u"100.5"_s);
    conta(u"ContasReceber"_s, u"CHEQUE"_s, u"50"_s, true);
    conta(u"ContasPagar"_s, u"LUZ"_s, u"80"_s);
    abre(u"frmContas"_s);
}

Linhas TstMovimentoAbas::linhas(const QString &nome) const
{
    Linhas todas;
    auto *lista = cadastro::list(janela_, nome);
    for (int linha = 0; linha < lista->count(); ++linha) {
        const ui::ListItem item = lista->item(linha);
        todas.push_back({item.text(), item.subItem(2), item.subItem(3)});
    }
    return todas;
}

void TstMovimentoAbas::clicaLinha(const QString &lista, int linha)
{
    auto *vista = cadastro::list(janela_, lista);
    const QPoint lugar = vista->visualRect(vista->model()->index(linha, 1)).center();
    QTest::mouseClick(janela_->window()->windowHandle(), Qt::LeftButton, {},
                      vista->viewport()->mapTo(janela_->window(), lugar));
    QCOMPARE(vista->selectedRow(), linha);
}

// --- a table a tab

void TstMovimentoAbas::aTabIsATable()
{
    abreContas();
    support::control<QTabWidget>(janela_, u"tabContas"_s)->setCurrentIndex(1);
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(linhas(u"Lista_1"_s).front(), (QStringList{u"0001"_s, u"LUZ"_s, u"80,00"_s}));
    type(janela_, u"txtData"_s, u"15052024"_s);
    type(janela_, u"cboDescricao"_s, u"agua"_s);
    type(janela_, u"txtValor"_s, u"33,3"_s);
    type(janela_, u"txtVencimento"_s, u"01062024"_s);
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Descricao, Valor FROM ContasPagar ORDER BY Codigo"_s),
             (Linhas{{u"LUZ"_s, u"80"_s}, {u"AGUA"_s, u"33.3"_s}}));
    QCOMPARE(program_->rows(u"SELECT Codigo FROM ContasReceber"_s).size(), 2U);
    QCOMPARE(linhas(u"Lista_1"_s).at(1), (QStringList{u"0002"_s, u"AGUA"_s, u"33,30"_s}));
}

void TstMovimentoAbas::theDueDateIsAMonthOn()
{
    abreContas();
    key(janela_, u"txtVencimento"_s, Qt::Key_F1);
    QCOMPARE(text(janela_, u"txtVencimento"_s), u"15/06/2024"_s);
    key(janela_, u"txtData"_s, Qt::Key_F1);
    QCOMPARE(text(janela_, u"txtData"_s), u"15/05/2024"_s);
}

void TstMovimentoAbas::theListOfTheDescriptionsIsKept()
{
    abreContas();
    QVERIFY(!support::controlOf(janela_, u"btnDescricaoAdd"_s)->isEnabled());
    type(janela_, u"cboDescricao"_s, u"luz"_s);
    click(janela_, u"btnDescricaoAdd"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM Combos"_s), (Linhas{{u"4"_s, u"LUZ"_s}}));
    click(janela_, u"btnDescricaoRemove"_s);
    QVERIFY(program_->rows(u"SELECT * FROM Combos"_s).empty());
}

void TstMovimentoAbas::aNewRowHasWhatNoBoxHolds()
{
    abreContas();
    type(janela_, u"txtData"_s, u"15052024"_s);
    type(janela_, u"cboDescricao"_s, u"carnê"_s);
    type(janela_, u"txtValor"_s, u"10"_s);
    type(janela_, u"txtVencimento"_s, u"15052024"_s);
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM ContasReceber WHERE Codigo = 3"_s),
             (Linhas{{u"3"_s, u"15/05/2024 00:00:00"_s, u"CARNÊ"_s, u"10"_s, u"15/05/2024 00:00:00"_s, u"False"_s,
                      u"<Null>"_s, u"<Null>"_s}}));
}

void TstMovimentoAbas::theTotalsStandBelowTheRows()
{
    abreContas();
    QCOMPARE(linhas(u"Lista_0"_s), (Linhas{{u"0001"_s, u"CARNÊ"_s, u"100,50"_s},
                                           {u"0002"_s, u"CHEQUE"_s, u"50,00"_s},
                                           {QString(), u"Total de Contas:"_s, u"150,50"_s},
                                           {QString(), u"Total de Contas Pagas:"_s, u"50,00"_s}}));
}

void TstMovimentoAbas::aRowOfTotalsIsNoRow()
{
    abreContas();
    clicaLinha(u"Lista_0"_s, 2);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(text(janela_, u"btnAlterar"_s), u"Alterar"_s);
    clicaLinha(u"Lista_0"_s, 1);
    clicaLinha(u"Lista_0"_s, 2);
    QCOMPARE(text(janela_, u"lblCodigo"_s), u"0002"_s);
}

void TstMovimentoAbas::aPeriodWithoutRowsSaysSo()
{
    abre(u"frmContas"_s);
    QCOMPARE(linhas(u"Lista_0"_s), (Linhas{{QString(), u"Registro Não Localizado"_s, QString()}}));
    clicaLinha(u"Lista_0"_s, 0);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(text(janela_, u"lblCodigo"_s), QString());
}

void TstMovimentoAbas::changesTheRowOfItsTab()
{
    abreContas();
    clicaLinha(u"Lista_0"_s, 1);
    click(janela_, u"btnAlterar"_s);
    const cadastro::Fields caixas{{u"txtData"_s, u"10/05/2024"_s},
                                  {u"cboDescricao"_s, u"CHEQUE"_s},
                                  {u"txtValor"_s, u"50,00"_s},
                                  {u"txtVencimento"_s, u"20/05/2024"_s}};
    QCOMPARE(cadastro::shown(janela_, caixas), caixas);
    type(janela_, u"txtValor"_s, u"60"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(program_->rows(u"SELECT Valor, Pago FROM ContasReceber ORDER BY Codigo"_s),
             (Linhas{{u"100.5"_s, u"False"_s}, {u"60"_s, u"True"_s}})); // a change leaves `Pago` alone
    QCOMPARE(linhas(u"Lista_0"_s).at(2).at(2), u"160,50"_s);
}

void TstMovimentoAbas::theTabsAreLockedWhileARowIsChanged()
{
    abreContas();
    clicaLinha(u"Lista_0"_s, 0);
    click(janela_, u"btnAlterar"_s);
    QVERIFY(!support::controlOf(janela_, u"tabContas"_s)->isEnabled());
    click(janela_, u"btnVoltar"_s);
    QVERIFY(support::controlOf(janela_, u"tabContas"_s)->isEnabled());
}

void TstMovimentoAbas::theKeyActsOnRowsWithACode()
{
    abreContas();
    key(janela_, u"Lista_0"_s, Qt::Key_P); // with nothing chosen
    clicaLinha(u"Lista_0"_s, 2);
    key(janela_, u"Lista_0"_s, Qt::Key_P);
    const QString abertas = u"SELECT Codigo FROM ContasReceber WHERE Pago = False"_s;
    QCOMPARE(program_->rows(abertas).size(), 1U);
    clicaLinha(u"Lista_0"_s, 0);
    key(janela_, u"Lista_0"_s, Qt::Key_P);
    QVERIFY(program_->rows(abertas).empty());
    QCOMPARE(linhas(u"Lista_0"_s).at(3).at(2), u"150,50"_s);
}

// --- written at once

void TstMovimentoAbas::aClickCopiesTheRow()
{
    program_->sql(u"INSERT INTO Diario (Data, Origem) VALUES (#05/10/2024#, 'FEIRA')"_s);
    abre(u"frmDiario"_s);
    cadastro::clickRow(janela_, 0);
    QCOMPARE(text(janela_, u"txtData"_s), u"10/05/2024"_s);
    QCOMPARE(text(janela_, u"txtOrigem"_s), u"FEIRA"_s);
}

void TstMovimentoAbas::aChangeIsWrittenAtOnce()
{
    program_->sql(u"INSERT INTO Diario (Data, Origem) VALUES (#05/10/2024#, 'FEIRA')"_s);
    abre(u"frmDiario"_s);
    cadastro::clickRow(janela_, 0);
    type(janela_, u"txtOrigem"_s, u"loja"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(text(janela_, u"btnAlterar"_s), u"Alterar"_s);
    QCOMPARE(program_->rows(u"SELECT Origem FROM Diario"_s), (Linhas{{u"LOJA"_s}}));
    QCOMPARE(cadastro::columnOf(janela_, 2), (QStringList{u"LOJA"_s}));
}

void TstMovimentoAbas::tellsOfARowThatIsGone()
{
    program_->sql(u"INSERT INTO Diario (Data, Origem) VALUES (#05/10/2024#, 'FEIRA')"_s);
    abre(u"frmDiario"_s);
    cadastro::clickRow(janela_, 0);
    program_->sql(u"DELETE * FROM Diario"_s);
    boxes_->exclamation(u"Código Não Localizado"_s);
    click(janela_, u"btnAlterar"_s);
    QVERIFY(program_->rows(u"SELECT * FROM Diario"_s).empty());
}

void TstMovimentoAbas::deletesByItsOwnStatement()
{
    program_->sql(u"INSERT INTO Diario (Data, Origem) VALUES (#05/10/2024#, 'FEIRA')"_s);
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (1, 'GOL')"_s);
    abre(u"frmDiario"_s);
    cadastro::clickRow(janela_, 0);
    boxes_->question(u"Excluir o Registro Selecionado"_s, true);
    click(janela_, u"btnExcluir"_s);
    QVERIFY(program_->rows(u"SELECT * FROM Combos"_s).empty());
    QCOMPARE(cadastro::columnOf(janela_, 2), (QStringList{u"FEIRA"_s}));
}

// --- the account of an owner

void TstMovimentoAbas::changesTheSelectedRowOfAnOwner()
{
    LancaNoRazao(razaoContaFiado, {.dono = u"1"_s, .descricao = u"O.S. 0001"_s, .valor = 10.0F});
    LancaNoRazao(razaoContaFiado, {.dono = u"1"_s, .descricao = u"O.S. 0002"_s, .valor = 5.0F});
    abre(u"frmConta"_s);
    click(janela_, u"btnAlterar"_s); // with nothing selected
    QCOMPARE(text(janela_, u"btnAlterar"_s), u"Alterar"_s);
    cadastro::clickRow(janela_, 1);
    click(janela_, u"btnAlterar"_s);
    click(janela_, u"optSaida"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(program_->rows(u"SELECT Entrada, Saida, Saldo FROM ContaFiado ORDER BY Codigo"_s),
             (Linhas{{u"10"_s, u"<Null>"_s, u"10"_s}, {u"<Null>"_s, u"5"_s, u"5"_s}}));
    QCOMPARE(text(janela_, u"lblCodigo"_s), u"0001"_s); // the owner's code
    QCOMPARE(cadastro::list(janela_)->selectedRow(), 1);
}

void TstMovimentoAbas::recalculatesTheOwnerAlone()
{
    LancaNoRazao(razaoContaFiado, {.dono = u"1"_s, .descricao = u"O.S. 0001"_s, .valor = 10.0F});
    LancaNoRazao(razaoContaFiado, {.dono = u"2"_s, .descricao = u"O.S. 0002"_s, .valor = 7.0F});
    program_->sql(u"UPDATE ContaFiado SET Saldo = 99"_s);
    abre(u"frmConta"_s);
    type(janela_, u"txtData"_s, u"01052024"_s);
    type(janela_, u"txtDescricao"_s, u"saldo antigo"_s);
    type(janela_, u"txtValor"_s, u"2"_s);
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT CodCliente, Entrada, Saldo FROM ContaFiado ORDER BY Codigo"_s),
             (Linhas{{u"1"_s, u"10"_s, u"12"_s}, {u"2"_s, u"7"_s, u"99"_s}, {u"1"_s, u"2"_s, u"2"_s}}));
}

// --- without commands

void TstMovimentoAbas::aListWithoutCommandsHasItsKey()
{
    program_->sql(u"INSERT INTO Fiados (CodOs, Pago, Vencimento) VALUES (12, False, #05/20/2024#)"_s);
    abre(u"frmPendentes"_s);
    QCOMPARE(cadastro::rowsOf(janela_), (Linhas{{u"0001"_s, u"0012"_s, u"Não"_s}}));
    cadastro::clickRow(janela_, 0);
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(cadastro::columnOf(janela_, 2), (QStringList{u"Sim"_s}));
    click(janela_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(u"frmPendentes"_s));
}

TARVELO_TEST_MAIN(TstMovimentoAbas)
#include "tst_movimento_abas.moc"
