#include "ui_frmMoviCofre.h"

#include "core/funcoes.h"
#include "core/modulo.h"
#include "core/movimento.h"
#include "platform/dao/database.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/controls.h"
#include "support/boxes.h"
#include "support/cadastro.h"

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

constexpr Razao razaoCofre{.tabela = u"Cofre"};

int iconeDaOrdem(const dao::Recordset &linha)
{
    return runtime::IsNull(linha.value(u"CodOs")) ? 0 : 1;
}

QString tagDaOrdem(const dao::Recordset &linha)
{
    return comoEsta(linha, linha.fieldPlace(u"CodOs"));
}

constexpr std::array colunas{
    ColunaLista{u"", 280, u"Codigo", comoCodigo},
    ColunaLista{u"Data", 1300, u"Data", comoData},
    ColunaLista{u"Descrição", 3400, u"Descricao", comoEsta},
    ColunaLista{u"Entrada", 1500, u"Entrada", comoValorOuBranco, Qt::AlignRight},
    ColunaLista{u"Saída", 1500, u"Saida", comoValorOuBranco, Qt::AlignRight},
    ColunaLista{u"Saldo", 1500, u"Saldo", comoValor, Qt::AlignRight},
};

constexpr std::array tabelas{TabelaMovimento{
    .tabela = u"Cofre",
    .consulta = u"SELECT * FROM Cofre WHERE Data BETWEEN ",
    .consultaFim = u" ORDER BY Data, Codigo",
    .lista = {.colunas = colunas, .icone = iconeDaOrdem, .tag = tagDaOrdem},
    .razao = &razaoCofre,
}};

constexpr std::array campos{
    Campo{.controle = u"txtData",
          .coluna = u"Data",
          .grava = comoTexto,
          .data = RegrasDaData{.saida = SaidaDaData::FormataDatas}},
    Campo{.controle = u"txtDescricao", .coluna = u"Descricao", .grava = comoTexto},
    Campo{.controle = u"txtValor", .coluna = {}, .tecla = SoDecimais, .mascara = TipoMascara::Valor},
};

constexpr std::array verificacoes{
    Verificacao{u"txtData", dataValida, u"Data Inválida"},
    Verificacao{.controle = u"txtData",
                .aceita = deHojeEmDiante,
                .mensagem = u"A data escolhida já passou",
                .soNaInclusao = true},
    Verificacao{u"txtDescricao", naoVazio, u"Descrição Inválida"},
    Verificacao{u"txtValor", numerico, u"Valor Inválido"},
};

constexpr Movimento movimento{
    .janela = u"frmMoviCofre",
    .titulo = u" - [Cofre]",
    .tabelas = tabelas,
    .campos = campos,
    .verificacoes = verificacoes,
    .periodo = Periodo{.diasAntes = 15, .diasDepois = 15},
    .soAdministrador = true,
};

using Linhas = cadastro::Rows;

} // namespace

/// A movement window that nothing but its layout and its table makes: a ledger, recalculated behind every change.
class TstMovimento : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void opensWithItsCaptionPeriodAndRows();
    void listsThePeriodAlone();
    void tabGoesFieldByField();
    void theDateBoxIsMaskedAndFormatted();
    void takesWhatItsColumnHolds();

    void refusesABadRow_data();
    void refusesABadRow();
    void addsARowBehindTheLastOne();
    void aLaterRowMovesTheBalancesBehindIt();
    void pressedTwiceItAddsOneRow();

    void bringsTheClickedRowIntoTheBoxes();
    void savesAChange();
    void aChangeMayLieInThePast();
    void aBadChangeIsRefused();
    void givesAChangeUp();
    void aRowThatIsGoneIsNotWritten();
    void withNothingClickedNothingIsChanged();
    void thePeriodMayChangeUnderTheClickedRow();

    void deletesTheClickedRow();
    void deletesNothingOnNo();
    void deletesNothingTwice();
    void withNothingClickedNothingIsDeleted();

    void onlyAnAdministratorChangesAndDeletes();
    void aRowWithAnOrderOpensIt();
    void backCloses();

private:
    void linha(const QString &data, const QString &descricao, const QString &entrada, const QString &saida);
    void abre();
    void preencheCaixas(const QString &data, const QString &descricao, const QString &valor);
    Linhas saldos() const;
    bool habilitado(const QString &nome) const { return support::controlOf(janela_, nome)->isEnabled(); }

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *janela_ = nullptr;
};

void TstMovimento::initTestCase()
{
    ui::Forms::instance().add(u"frmMoviCofre"_s, [] { return new MovimentoSimples<Ui::frmMoviCofre>(movimento); });
}

void TstMovimento::init()
{
    program_ = std::make_unique<support::Program>();
    program_->sql(
        u"CREATE TABLE Cofre (Codigo COUNTER, Data DATETIME, Descricao TEXT(20), Entrada SINGLE, Saida SINGLE, "
        "Saldo SINGLE, CodOs LONG)"_s);
    boxes_ = std::make_unique<support::Boxes>();
    boxes_->title(u"Tarvelo"_s);
}

void TstMovimento::cleanup()
{
    boxes_.reset();
    program_.reset();
}

void TstMovimento::linha(const QString &data, const QString &descricao, const QString &entrada, const QString &saida)
{
    program_->sql(u"INSERT INTO Cofre (Data, Descricao, Entrada, Saida, Saldo) VALUES (#%1#, '%2', %3, %4, 0)"_s.arg(
        data, descricao, entrada, saida));
}

void TstMovimento::abre()
{
    janela_ = cadastro::open(u"frmMoviCofre"_s);
}

void TstMovimento::preencheCaixas(const QString &data, const QString &descricao, const QString &valor)
{
    type(janela_, u"txtData"_s, data);
    type(janela_, u"txtDescricao"_s, descricao);
    type(janela_, u"txtValor"_s, valor);
}

Linhas TstMovimento::saldos() const
{
    return program_->rows(u"SELECT Codigo, Entrada, Saida, Saldo FROM Cofre ORDER BY Data, Codigo"_s);
}

// --- opening

void TstMovimento::opensWithItsCaptionPeriodAndRows()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    abre();
    QCOMPARE(janela_->windowTitle(), u"Tarvelo - [Cofre]"_s);
    QCOMPARE(support::control<ui::DTPicker>(janela_, u"txtDataInicio"_s)->date(), QDate(2024, 4, 30));
    QCOMPARE(support::control<ui::DTPicker>(janela_, u"txtDataFim"_s)->date(), QDate(2024, 5, 30));
    QCOMPARE(cadastro::titlesOf(janela_),
             (QStringList{QString(), u"Data"_s, u"Descrição"_s, u"Entrada"_s, u"Saída"_s, u"Saldo"_s}));
    QCOMPARE(cadastro::rowsOf(janela_),
             (Linhas{{u"0001"_s, u"10/05/2024"_s, u"ABERTURA"_s, u"10,00"_s, u" "_s, u"0,00"_s}}));
}

void TstMovimento::listsThePeriodAlone()
{
    linha(u"04/29/2024"_s, u"ANTES"_s, u"1"_s, u"Null"_s);
    linha(u"04/30/2024"_s, u"PRIMEIRO"_s, u"1"_s, u"Null"_s);
    linha(u"05/30/2024"_s, u"ULTIMO"_s, u"1"_s, u"Null"_s);
    linha(u"05/31/2024"_s, u"DEPOIS"_s, u"1"_s, u"Null"_s);
    abre();
    QCOMPARE(cadastro::columnOf(janela_, 2), (QStringList{u"PRIMEIRO"_s, u"ULTIMO"_s}));
    type(janela_, u"txtDataInicio"_s, u"01052024"_s);
    type(janela_, u"txtDataFim"_s, u"05062024"_s);
    QCOMPARE(cadastro::columnOf(janela_, 2), (QStringList{u"PRIMEIRO"_s, u"ULTIMO"_s}));
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(cadastro::columnOf(janela_, 2), (QStringList{u"ULTIMO"_s, u"DEPOIS"_s}));
}

void TstMovimento::tabGoesFieldByField()
{
    abre();
    const QStringList ordem{u"txtData"_s,       u"txtDescricao"_s, u"optEntrada"_s,  u"txtValor"_s,
                            u"btnIncluir"_s,    u"btnAlterar"_s,   u"btnExcluir"_s,  u"btnVoltar"_s,
                            u"txtDataInicio"_s, u"txtDataFim"_s,   u"btnPreenche"_s, u"Lista"_s};
    QCOMPARE(cadastro::tabOrder(janela_, u"txtData"_s, ordem.size()), ordem);
}

void TstMovimento::theDateBoxIsMaskedAndFormatted()
{
    abre();
    key(janela_, u"txtData"_s, Qt::Key_F1);
    QCOMPARE(text(janela_, u"txtData"_s), u"15/05/2024"_s);
    type(janela_, u"txtData"_s, u"010624"_s);
    QCOMPARE(text(janela_, u"txtData"_s), u"01/06/2024"_s);
}

void TstMovimento::takesWhatItsColumnHolds()
{
    abre();
    type(janela_, u"txtDescricao"_s, u"uma descrição comprida"_s);
    QCOMPARE(text(janela_, u"txtDescricao"_s), u"UMA DESCRIÇÃO COMPRI"_s);
}

// --- adding

void TstMovimento::refusesABadRow_data()
{
    QTest::addColumn<QString>("data");
    QTest::addColumn<QString>("descricao");
    QTest::addColumn<QString>("valor");
    QTest::addColumn<QString>("mensagem");
    QTest::addColumn<QString>("foco");
    QTest::newRow("nothing") << QString() << QString() << QString() << u"Data Inválida"_s << u"txtData"_s;
    QTest::newRow("no date") << u"31022024"_s << u"a"_s << u"1"_s << u"Data Inválida"_s << u"txtData"_s;
    QTest::newRow("yesterday") << u"14052024"_s << QString() << QString() << u"A data escolhida já passou"_s
                               << u"txtData"_s;
    QTest::newRow("no text") << u"15052024"_s << QString() << QString() << u"Descrição Inválida"_s << u"txtDescricao"_s;
    QTest::newRow("no value") << u"16052024"_s << u"a"_s << QString() << u"Valor Inválido"_s << u"txtValor"_s;
}

void TstMovimento::refusesABadRow()
{
    QFETCH(QString, data);
    QFETCH(QString, descricao);
    QFETCH(QString, valor);
    QFETCH(QString, mensagem);
    abre();
    preencheCaixas(data, descricao, valor);
    boxes_->exclamation(mensagem);
    click(janela_, u"btnIncluir"_s);
    QTEST(cadastro::focusOf(janela_), "foco");
    QVERIFY(saldos().empty());
}

void TstMovimento::addsARowBehindTheLastOne()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    abre();
    click(janela_, u"optSaida"_s);
    preencheCaixas(u"15052024"_s, u"troco"_s, u"2,5"_s);
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM Cofre WHERE Codigo = 2"_s),
             (Linhas{{u"2"_s, u"15/05/2024 00:00:00"_s, u"TROCO"_s, u"<Null>"_s, u"2.5"_s, u"7.5"_s, u"<Null>"_s}}));
    QCOMPARE(cadastro::columnOf(janela_, 5), (QStringList{u"10,00"_s, u"7,50"_s}));
    for (const QString &caixa : {u"txtData"_s, u"txtDescricao"_s, u"txtValor"_s}) {
        QCOMPARE(text(janela_, caixa), QString());
    }
    QCOMPARE(cadastro::focusOf(janela_), u"txtData"_s);
    QVERIFY(support::control<QRadioButton>(janela_, u"optSaida"_s)->isChecked());
}

void TstMovimento::aLaterRowMovesTheBalancesBehindIt()
{
    linha(u"05/25/2024"_s, u"FUTURO"_s, u"10"_s, u"Null"_s);
    abre();
    preencheCaixas(u"20052024"_s, u"venda"_s, u"5"_s);
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(saldos(), (Linhas{{u"2"_s, u"5"_s, u"<Null>"_s, u"5"_s}, {u"1"_s, u"10"_s, u"<Null>"_s, u"15"_s}}));
}

void TstMovimento::pressedTwiceItAddsOneRow()
{
    abre();
    preencheCaixas(u"15052024"_s, u"venda"_s, u"5"_s);
    boxes_->exclamation(u"Data Inválida"_s);
    QWidget *botao = support::controlOf(janela_, u"btnIncluir"_s);
    const QPoint lugar = botao->mapTo(janela_->window(), botao->rect().center());
    QTest::mouseDClick(janela_->window()->windowHandle(), Qt::LeftButton, {}, lugar);
    QCOMPARE(saldos(), (Linhas{{u"1"_s, u"5"_s, u"<Null>"_s, u"5"_s}}));
}

// --- changing

void TstMovimento::bringsTheClickedRowIntoTheBoxes()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    linha(u"05/11/2024"_s, u"TROCO"_s, u"Null"_s, u"2.5"_s);
    abre();
    cadastro::clickRow(janela_, 1);
    click(janela_, u"btnAlterar"_s);
    const cadastro::Fields caixas{{u"txtData"_s, u"11/05/2024"_s},
                                  {u"txtDescricao"_s, u"TROCO"_s},
                                  {u"txtValor"_s, u"2,50"_s},
                                  {u"btnAlterar"_s, u"Salvar"_s},
                                  {u"btnVoltar"_s, u"Cancelar"_s}};
    QCOMPARE(cadastro::shown(janela_, caixas), caixas);
    QVERIFY(support::control<QRadioButton>(janela_, u"optSaida"_s)->isChecked());
    QVERIFY(!habilitado(u"Lista"_s) && !habilitado(u"btnIncluir"_s) && !habilitado(u"btnExcluir"_s));
    QCOMPARE(cadastro::focusOf(janela_), u"txtData"_s);
    click(janela_, u"btnVoltar"_s);
    cadastro::clickRow(janela_, 0);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(text(janela_, u"txtValor"_s), u"10,00"_s);
    QVERIFY(support::control<QRadioButton>(janela_, u"optEntrada"_s)->isChecked());
}

void TstMovimento::savesAChange()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    linha(u"05/11/2024"_s, u"VENDA"_s, u"5"_s, u"Null"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    click(janela_, u"btnAlterar"_s);
    type(janela_, u"txtDescricao"_s, u"retirada"_s);
    click(janela_, u"optSaida"_s);
    type(janela_, u"txtValor"_s, u"1,5"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(saldos(), (Linhas{{u"1"_s, u"<Null>"_s, u"1.5"_s, u"-1.5"_s}, {u"2"_s, u"5"_s, u"<Null>"_s, u"3.5"_s}}));
    QCOMPARE(cadastro::columnOf(janela_, 2), (QStringList{u"RETIRADA"_s, u"VENDA"_s}));
    QCOMPARE(cadastro::columnOf(janela_, 3), (QStringList{u" "_s, u"5,00"_s}));
    const cadastro::Fields depois{{u"txtData"_s, QString()},
                                  {u"txtDescricao"_s, QString()},
                                  {u"txtValor"_s, QString()},
                                  {u"btnAlterar"_s, u"&Alterar"_s},
                                  {u"btnVoltar"_s, u"&Voltar"_s}};
    QCOMPARE(cadastro::shown(janela_, depois), depois);
    QVERIFY(habilitado(u"Lista"_s) && habilitado(u"btnIncluir"_s) && habilitado(u"btnExcluir"_s));
    QCOMPARE(cadastro::focusOf(janela_), u"Lista"_s);
}

void TstMovimento::aChangeMayLieInThePast()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    click(janela_, u"btnAlterar"_s);
    type(janela_, u"txtData"_s, u"01052024"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(cadastro::columnOf(janela_, 1), (QStringList{u"01/05/2024"_s}));
}

void TstMovimento::aBadChangeIsRefused()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    click(janela_, u"btnAlterar"_s);
    type(janela_, u"txtDescricao"_s, QString());
    boxes_->exclamation(u"Descrição Inválida"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(text(janela_, u"btnAlterar"_s), u"Salvar"_s);
    QCOMPARE(cadastro::columnOf(janela_, 2), (QStringList{u"ABERTURA"_s}));
}

void TstMovimento::givesAChangeUp()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    click(janela_, u"btnAlterar"_s);
    type(janela_, u"txtDescricao"_s, u"outra"_s);
    click(janela_, u"btnVoltar"_s);
    QCOMPARE(saldos(), (Linhas{{u"1"_s, u"10"_s, u"<Null>"_s, u"0"_s}})); // not recalculated either
    QCOMPARE(text(janela_, u"txtDescricao"_s), QString());
    QCOMPARE(text(janela_, u"btnAlterar"_s), u"&Alterar"_s);
    QVERIFY(cadastro::isOpen(u"frmMoviCofre"_s));
}

void TstMovimento::aRowThatIsGoneIsNotWritten()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    linha(u"05/11/2024"_s, u"VENDA"_s, u"5"_s, u"Null"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    click(janela_, u"btnAlterar"_s);
    program_->sql(u"DELETE * FROM Cofre WHERE Codigo = 1"_s);
    type(janela_, u"txtValor"_s, u"99"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(saldos(), (Linhas{{u"2"_s, u"5"_s, u"<Null>"_s, u"5"_s}}));
    QCOMPARE(cadastro::columnOf(janela_), (QStringList{u"0002"_s}));
    QCOMPARE(text(janela_, u"btnAlterar"_s), u"&Alterar"_s);
}

void TstMovimento::withNothingClickedNothingIsChanged()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    abre();
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(text(janela_, u"btnAlterar"_s), u"&Alterar"_s);
    QCOMPARE(text(janela_, u"txtData"_s), QString());
}

/// The row that was clicked is the one that is changed, and one that the list no longer shows is not.
void TstMovimento::thePeriodMayChangeUnderTheClickedRow()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    linha(u"05/11/2024"_s, u"VENDA"_s, u"5"_s, u"Null"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    type(janela_, u"txtDataInicio"_s, u"11052024"_s);
    click(janela_, u"btnPreenche"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(text(janela_, u"btnAlterar"_s), u"&Alterar"_s);
    type(janela_, u"txtDataInicio"_s, u"01052024"_s);
    click(janela_, u"btnPreenche"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(text(janela_, u"txtDescricao"_s), u"ABERTURA"_s);
}

// --- deleting

void TstMovimento::deletesTheClickedRow()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    linha(u"05/11/2024"_s, u"VENDA"_s, u"5"_s, u"Null"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    boxes_->question(u"Excluir o Registro Selecionado"_s, true);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(saldos(), (Linhas{{u"2"_s, u"5"_s, u"<Null>"_s, u"5"_s}}));
    QCOMPARE(cadastro::columnOf(janela_), (QStringList{u"0002"_s}));
}

void TstMovimento::deletesNothingOnNo()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    boxes_->question(u"Excluir o Registro Selecionado"_s, false);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(saldos().size(), 1U);
}

void TstMovimento::deletesNothingTwice()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    linha(u"05/11/2024"_s, u"VENDA"_s, u"5"_s, u"Null"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    boxes_->question(u"Excluir o Registro Selecionado"_s, true).question(u"Excluir o Registro Selecionado"_s, true);
    click(janela_, u"btnExcluir"_s);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(saldos().size(), 1U);
}

void TstMovimento::withNothingClickedNothingIsDeleted()
{
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    abre();
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(saldos().size(), 1U);
}

// --- the rest

void TstMovimento::onlyAnAdministratorChangesAndDeletes()
{
    program_->sql(u"INSERT INTO Senha (Codigo, Nome, Senha, Admin) VALUES (2, 'BALCAO', 'X', False)"_s);
    CodOperador = 2;
    abre();
    QVERIFY(!habilitado(u"btnAlterar"_s) && !habilitado(u"btnExcluir"_s));
    preencheCaixas(u"15052024"_s, u"venda"_s, u"5"_s);
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(saldos().size(), 1U);
    QVERIFY(!habilitado(u"btnAlterar"_s) && !habilitado(u"btnExcluir"_s));
}

void TstMovimento::aRowWithAnOrderOpensIt()
{
    cadastro::standIn(u"frmOSConsulta"_s, {u"lblCodigo"_s});
    linha(u"05/10/2024"_s, u"ABERTURA"_s, u"10"_s, u"Null"_s);
    linha(u"05/11/2024"_s, u"O.S. 0012"_s, u"5"_s, u"Null"_s);
    program_->sql(u"UPDATE Cofre SET CodOs = 12 WHERE Codigo = 2"_s);
    abre();
    cadastro::doubleClickRow(janela_, 0);
    QCoreApplication::processEvents();
    QVERIFY(!cadastro::isOpen(u"frmOSConsulta"_s));
    cadastro::doubleClickRow(janela_, 1);
    QTRY_VERIFY(cadastro::isOpen(u"frmOSConsulta"_s));
    QCOMPARE(cadastro::StandIn::modeAtLoad, qint16{10});
    QCOMPARE(CodigoConsulta, 12);
}

void TstMovimento::backCloses()
{
    abre();
    click(janela_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(u"frmMoviCofre"_s));
}

TARVELO_TEST_MAIN(TstMovimento)
#include "tst_movimento.moc"
