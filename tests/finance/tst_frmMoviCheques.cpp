#include "core/financas.h"
#include "core/funcoes.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "finance/finance.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/application.h"
#include "platform/ui/controls.h"
#include "support/boxes.h"
#include "support/cadastro.h"

#include <memory>

using namespace Qt::StringLiterals;
using cadastro::errorBox;
using support::click;
using support::key;
using support::text;
using support::type;
using Linhas = cadastro::Rows;

namespace
{

const QString nulo = u"<Null>"_s;
const QString hoje = u"15/05/2024 00:00:00"_s;
const QString lancar = u"Lançar Recebimento do Cheque no Livro Caixa"_s;
const QString excluir = u"Excluir o Registro Selecionado"_s;
const QString dataInvalida = u"Data de Vencimento inválida"_s;
const Linhas semCheques{{QString(), QString(), QString(), u"Registro Não Localizado"_s, u" "_s, QString(), QString(),
                         QString(), QString(), QString()}};

constexpr int colunaValor = 6;
constexpr int colunaPago = 8;

} // namespace

/// The list of cheques: kept by hand, summed, cleared and taken back by the key P.
class TstFrmMoviCheques : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { finance::registerForms(); }
    void init();
    void cleanup();

    // The list
    void opensWithItsCaptionPeriodAndColumns();
    void showsARowInItsColumns();
    void aChequeWithoutAnOrderShowsZerosAndNoPicture();
    void theRowsAreInTheOrderOfTheirEntry();
    void thePeriodIsOfTheDueDates();
    void sumsWhatIsClearedAndWhatIsNot();
    void sumsAThousandChequesIn32Bits();
    void anEmptyPeriodSaysSoAndSumsNothing();
    void aRowWithAnOrderOpensIt();

    // The boxes
    void tabGoesFieldByField();
    void theDueDateIsMasked();
    void theValueIsMaskedOnLeaving();
    void theBoxesTakeWhatTheirColumnsHold();
    void theListOfBanksIsKeptAndCompletes();

    // Adding
    void refusesABadCheque_data();
    void refusesABadCheque();
    void addsACheque();
    void takesAmountsAsTheyAreTyped_data();
    void takesAmountsAsTheyAreTyped();
    void anEmptyBankAndAPastDateAreNoFault();
    void addingForgetsTheRowClickedLast();
    void pressedTwiceItAddsOneCheque();

    // Changing
    void bringsTheClickedRowIntoTheBoxes();
    void aChangeResetsTheDayOfEntry();
    void aBadChangeIsRefused();
    void givesAChangeUp();
    void aRowThatIsGoneIsNotCheckedAndNotWritten();
    void savingWithoutACodeIsRefused();
    void withNothingClickedNothingIsChangedOrDeleted();

    // Deleting
    void deletesTheClickedRow();
    void deletesNothingOnNo();
    void deletesNothingTwice();

    // The key P
    void clearsAChequeAndPostsIt();
    void clearsAChequeAndRefusesThePosting();
    void undoingAsksAndPostsAgain();
    void aHandEnteredChequeIsPostedWithZeros();
    void thePostingFollowsTheNewestRow();
    void onAnEmptyBookThePostingIsARunTimeError();
    void everybodyMayClear();
    void onTheRowForNothingFoundItDoesNothing();
    void onAChequeThatIsGoneItDoesNothing();
    void withNoRowChosenItDoesNothing();
    void theClearedRowStaysChosen();
    void backCloses();

private:
    /// A cheque as another writer leaves it; the date as the statement takes it.
    void linha(const QString &vencimento, const QString &valor, bool pago = false, const QString &codOs = u"0"_s);
    void abre();
    void preencheCaixas(const QString &valor, const QString &vencimento);
    void escolhe(const QString &operacao);
    QStringList somas() const;
    Linhas caixa() const;
    QString legenda(const QString &botao) const; ///< without its mark
    bool habilitado(const QString &nome) const { return support::controlOf(janela_, nome)->isEnabled(); }

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *janela_ = nullptr;
};

void TstFrmMoviCheques::init()
{
    program_ = std::make_unique<support::Program>();
    boxes_ = std::make_unique<support::Boxes>();
    boxes_->title(u"Tarvelo"_s);
}

void TstFrmMoviCheques::cleanup()
{
    boxes_.reset();
    program_.reset();
}

void TstFrmMoviCheques::linha(const QString &vencimento, const QString &valor, bool pago, const QString &codOs)
{
    program_->sql(u"INSERT INTO Cheques (CodOs, Data, Banco, Conta, Numero, Valor, Vencimento, Pago, Observacoes) "
                  "VALUES (%1, #05/10/2024#, 'BRASIL', '123-4', '000777', %2, #%3#, %4, 'DE TERCEIRO')"_s.arg(
                      codOs, valor, vencimento, pago ? u"-1"_s : u"0"_s));
}

void TstFrmMoviCheques::abre()
{
    janela_ = cadastro::open(u"frmMoviCheques"_s);
}

void TstFrmMoviCheques::preencheCaixas(const QString &valor, const QString &vencimento)
{
    type(janela_, u"txtBanco"_s, u"itau"_s);
    type(janela_, u"txtConta"_s, u"55-x"_s);
    type(janela_, u"txtNumCheque"_s, u"000888"_s);
    type(janela_, u"txtValor"_s, valor);
    type(janela_, u"txtData"_s, vencimento);
    type(janela_, u"txtObs"_s, u"bom para junho"_s);
}

/// One cheque, due, in the open window, clicked and the command pressed.
void TstFrmMoviCheques::escolhe(const QString &operacao)
{
    linha(u"05/20/2024"_s, u"33.5"_s, true, u"12"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    click(janela_, operacao);
}

QStringList TstFrmMoviCheques::somas() const
{
    return {text(janela_, u"lblTotal"_s), text(janela_, u"lblCompensado"_s), text(janela_, u"lblCompensar"_s)};
}

Linhas TstFrmMoviCheques::caixa() const
{
    return program_->rows(u"SELECT Data, Descricao, Entrada, Saida, Saldo, CodOs FROM Caixa ORDER BY Codigo"_s);
}

QString TstFrmMoviCheques::legenda(const QString &botao) const
{
    return text(janela_, botao).remove(u'&');
}

// --- the list

void TstFrmMoviCheques::opensWithItsCaptionPeriodAndColumns()
{
    abre();
    QCOMPARE(janela_->windowTitle(), u"Tarvelo - [Relação de Cheques]"_s);
    QCOMPARE(support::control<ui::DTPicker>(janela_, u"txtDataInicio"_s)->date(), QDate(2024, 4, 30));
    QCOMPARE(support::control<ui::DTPicker>(janela_, u"txtDataFim"_s)->date(), QDate(2024, 5, 30));
    QCOMPARE(cadastro::titlesOf(janela_),
             (QStringList{QString(), u"Cód. O.S."_s, u"Data"_s, u"Banco"_s, u"Conta"_s, u"Número"_s, u"Valor"_s,
                          u"Vencimento"_s, u"Pago"_s, u"Observações"_s}));
    const auto *lista = cadastro::list(janela_);
    QCOMPARE(lista->model()->headerData(colunaValor, Qt::Horizontal, Qt::TextAlignmentRole).toInt() & Qt::AlignRight,
             int{Qt::AlignRight});
    QCOMPARE(cadastro::focusOf(janela_), u"txtBanco"_s);
}

void TstFrmMoviCheques::showsARowInItsColumns()
{
    linha(u"05/20/2024"_s, u"1234.5"_s, false, u"12"_s);
    program_->sql(u"INSERT INTO Cheques (CodOs, Data, Valor, Vencimento, Pago) VALUES (13, #05/11/2024#, 0.1, "
                  "#05/21/2024#, -1)"_s);
    abre();
    QCOMPARE(cadastro::rowsOf(janela_),
             (Linhas{{u"0001"_s, u"0012"_s, u"10/05/2024"_s, u"BRASIL"_s, u"123-4"_s, u"000777"_s, u"1.234,50"_s,
                      u"20/05/2024"_s, u"Não"_s, u"DE TERCEIRO"_s},
                     {u"0002"_s, u"0013"_s, u"11/05/2024"_s, QString(), QString(), QString(), u"0,10"_s,
                      u"21/05/2024"_s, u"Sim"_s, QString()}}));
    QCOMPARE(cadastro::list(janela_)->item(0).smallIcon(), 1);
    QCOMPARE(cadastro::list(janela_)->item(0).tag(), u"12"_s);
}

void TstFrmMoviCheques::aChequeWithoutAnOrderShowsZerosAndNoPicture()
{
    linha(u"05/20/2024"_s, u"1"_s);
    linha(u"05/20/2024"_s, u"1"_s, false, u"Null"_s);
    abre();
    QCOMPARE(cadastro::list(janela_)->item(0).subItem(1), u"0000"_s);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(cadastro::list(janela_)->item(i).smallIcon(), 0);
        QCOMPARE(cadastro::list(janela_)->item(i).tag(), QString());
    }
}

void TstFrmMoviCheques::theRowsAreInTheOrderOfTheirEntry()
{
    linha(u"05/16/2024"_s, u"1"_s);
    linha(u"05/20/2024"_s, u"2"_s);
    linha(u"05/18/2024"_s, u"3"_s);
    program_->sql(u"UPDATE Cheques SET Data = #05/09/2024# WHERE Codigo = 3"_s);
    abre();
    QCOMPARE(cadastro::columnOf(janela_), (QStringList{u"0003"_s, u"0001"_s, u"0002"_s}));
}

void TstFrmMoviCheques::thePeriodIsOfTheDueDates()
{
    for (const QString &dia : {u"04/29/2024"_s, u"04/30/2024"_s, u"05/30/2024"_s, u"05/31/2024"_s}) {
        linha(dia, u"1"_s);
    }
    abre();
    QCOMPARE(cadastro::columnOf(janela_), (QStringList{u"0002"_s, u"0003"_s}));
    type(janela_, u"txtDataInicio"_s, u"30052024"_s);
    type(janela_, u"txtDataFim"_s, u"30062024"_s);
    QCOMPARE(cadastro::columnOf(janela_), (QStringList{u"0002"_s, u"0003"_s}));
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(cadastro::columnOf(janela_), (QStringList{u"0003"_s, u"0004"_s}));
}

void TstFrmMoviCheques::sumsWhatIsClearedAndWhatIsNot()
{
    linha(u"05/20/2024"_s, u"1000"_s, true);
    linha(u"05/20/2024"_s, u"200.5"_s);
    linha(u"05/20/2024"_s, u"30"_s, true);
    linha(u"06/20/2024"_s, u"4"_s, true); // outside the period
    abre();
    QCOMPARE(somas(), (QStringList{u"1.230,50"_s, u"1.030,00"_s, u"200,50"_s}));
}

void TstFrmMoviCheques::sumsAThousandChequesIn32Bits()
{
    constexpr int cheques = 1000;
    constexpr float valor = 12345.67F;
    float total = 0;
    {
        const dao::Unit lote;
        for (int i = 0; i < cheques; ++i) {
            core::IncluiCheque({.codOs = u"0"_s,
                                .banco = {},
                                .conta = {},
                                .numero = {},
                                .valor = valor,
                                .vencimento = u"20/05/2024"_s});
            total += valor;
        }
    }
    const QString somado = runtime::Format(total, core::mascaraValor);
    QVERIFY(somado != runtime::Format(double{valor} * cheques, core::mascaraValor));
    abre();
    QCOMPARE(somas(), (QStringList{somado, u"0,00"_s, somado}));
}

void TstFrmMoviCheques::anEmptyPeriodSaysSoAndSumsNothing()
{
    linha(u"05/20/2024"_s, u"1000"_s, true);
    abre();
    type(janela_, u"txtDataFim"_s, u"19052024"_s);
    click(janela_, u"btnPreenche"_s);
    QCOMPARE(cadastro::rowsOf(janela_), semCheques);
    QCOMPARE(somas(), (QStringList{u"0,00"_s, u"0,00"_s, u"0,00"_s}));
}

void TstFrmMoviCheques::aRowWithAnOrderOpensIt()
{
    cadastro::standIn(u"frmOSConsulta"_s, {u"lblCodigo"_s});
    linha(u"05/20/2024"_s, u"1"_s);
    linha(u"05/20/2024"_s, u"1"_s, false, u"12"_s);
    abre();
    cadastro::doubleClickRow(janela_, 0);
    QCoreApplication::processEvents();
    QVERIFY(!cadastro::isOpen(u"frmOSConsulta"_s));
    cadastro::doubleClickRow(janela_, 1);
    QTRY_VERIFY(cadastro::isOpen(u"frmOSConsulta"_s));
    QCOMPARE(cadastro::StandIn::modeAtLoad, qint16{10});
    QCOMPARE(core::CodigoConsulta, 12);
}

// --- the boxes

void TstFrmMoviCheques::tabGoesFieldByField()
{
    abre();
    const QStringList ordem{u"txtBanco"_s,      u"txtConta"_s,   u"txtNumCheque"_s, u"txtValor"_s,   u"txtData"_s,
                            u"txtObs"_s,        u"btnIncluir"_s, u"btnAlterar"_s,   u"btnExcluir"_s, u"btnVoltar"_s,
                            u"txtDataInicio"_s, u"txtDataFim"_s, u"btnPreenche"_s,  u"Lista"_s};
    QCOMPARE(cadastro::tabOrder(janela_, u"txtBanco"_s, ordem.size()), ordem);
}

void TstFrmMoviCheques::theDueDateIsMasked()
{
    abre();
    type(janela_, u"txtData"_s, u"20052024"_s);
    QCOMPARE(text(janela_, u"txtData"_s), u"20/05/2024"_s);
    key(janela_, u"txtData"_s, Qt::Key_F1);
    QCOMPARE(text(janela_, u"txtData"_s), u"15/05/2024"_s);
}

void TstFrmMoviCheques::theValueIsMaskedOnLeaving()
{
    abre();
    type(janela_, u"txtValor"_s, u"1234,5"_s);
    QCOMPARE(text(janela_, u"txtValor"_s), u"1.234,50"_s);
}

void TstFrmMoviCheques::theBoxesTakeWhatTheirColumnsHold()
{
    abre();
    const QString comprido(300, u'A');
    for (const auto &[caixa, tamanho] :
         {std::pair{u"txtBanco"_s, 50}, {u"txtConta"_s, 50}, {u"txtNumCheque"_s, 50}, {u"txtObs"_s, 250}}) {
        cadastro::paste(janela_, caixa, comprido);
        QCOMPARE(text(janela_, caixa).size(), tamanho);
    }
}

void TstFrmMoviCheques::theListOfBanksIsKeptAndCompletes()
{
    abre();
    QVERIFY(!habilitado(u"btnBancoAdd"_s) && !habilitado(u"btnBancoRemove"_s));
    type(janela_, u"txtBanco"_s, u"brasil"_s);
    click(janela_, u"btnBancoAdd"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM Combos"_s), (Linhas{{u"2"_s, u"BRASIL"_s}}));
    type(janela_, u"txtBanco"_s, u"br"_s);
    QCOMPARE(text(janela_, u"txtBanco"_s), u"BRASIL"_s);
    click(janela_, u"btnBancoRemove"_s);
    QVERIFY(program_->rows(u"SELECT * FROM Combos"_s).empty());
}

// --- adding

void TstFrmMoviCheques::refusesABadCheque_data()
{
    QTest::addColumn<QString>("valor");
    QTest::addColumn<QString>("vencimento");
    QTest::addColumn<QString>("mensagem");
    QTest::addColumn<QString>("foco");
    const QString valor = u"Valor inválido"_s;
    QTest::newRow("nothing, the value first") << QString() << QString() << valor << u"txtValor"_s;
    QTest::newRow("no number") << u"cem"_s << u"20052024"_s << valor << u"txtValor"_s;
    QTest::newRow("two commas") << u"1,2,3"_s << u"20052024"_s << valor << u"txtValor"_s;
    QTest::newRow("no date") << u"1"_s << QString() << dataInvalida << u"txtData"_s;
    QTest::newRow("no such day") << u"1"_s << u"31022024"_s << dataInvalida << u"txtData"_s;
}

void TstFrmMoviCheques::refusesABadCheque()
{
    QFETCH(QString, valor);
    QFETCH(QString, vencimento);
    QFETCH(QString, mensagem);
    abre();
    preencheCaixas(valor, vencimento);
    boxes_->exclamation(mensagem);
    click(janela_, u"btnIncluir"_s);
    QTEST(cadastro::focusOf(janela_), "foco");
    QVERIFY(program_->rows(u"SELECT * FROM Cheques"_s).empty());
    QCOMPARE(text(janela_, u"txtBanco"_s), u"ITAU"_s);
}

void TstFrmMoviCheques::addsACheque()
{
    abre();
    preencheCaixas(u"1234,56"_s, u"20052024"_s);
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM Cheques"_s),
             (Linhas{{u"1"_s, u"0"_s, hoje, u"ITAU"_s, u"55-X"_s, u"000888"_s, u"1234.56"_s, u"20/05/2024 00:00:00"_s,
                      u"0"_s, u"BOM PARA JUNHO"_s}}));
    QCOMPARE(cadastro::columnOf(janela_, colunaValor), (QStringList{u"1.234,56"_s}));
    QCOMPARE(somas(), (QStringList{u"1.234,56"_s, u"0,00"_s, u"1.234,56"_s}));
    for (const QString &caixa :
         {u"txtBanco"_s, u"txtConta"_s, u"txtNumCheque"_s, u"txtValor"_s, u"txtData"_s, u"txtObs"_s}) {
        QCOMPARE(text(janela_, caixa), QString());
    }
    QCOMPARE(cadastro::focusOf(janela_), u"txtBanco"_s);
}

void TstFrmMoviCheques::takesAmountsAsTheyAreTyped_data()
{
    QTest::addColumn<QString>("digitado");
    QTest::addColumn<QString>("gravado");
    QTest::newRow("thousands") << u"1.234,56"_s << u"1234.56"_s;
    QTest::newRow("exponent") << u"1e3"_s << u"1000"_s;
    QTest::newRow("below zero") << u"-5"_s << u"-5"_s;
    QTest::newRow("nine digits") << u"1234567,89"_s << u"1234567.9"_s;
}

void TstFrmMoviCheques::takesAmountsAsTheyAreTyped()
{
    QFETCH(QString, digitado);
    QFETCH(QString, gravado);
    abre();
    preencheCaixas(digitado, u"20052024"_s);
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Valor FROM Cheques"_s), (Linhas{{gravado}}));
}

void TstFrmMoviCheques::anEmptyBankAndAPastDateAreNoFault()
{
    abre();
    type(janela_, u"txtValor"_s, u"10"_s);
    type(janela_, u"txtData"_s, u"01011999"_s);
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT Banco, Conta, Numero, Vencimento, Observacoes FROM Cheques"_s),
             (Linhas{{nulo, nulo, nulo, u"01/01/1999 00:00:00"_s, nulo}}));
    QCOMPARE(cadastro::rowsOf(janela_), semCheques); // not in the period
}

void TstFrmMoviCheques::addingForgetsTheRowClickedLast()
{
    linha(u"05/20/2024"_s, u"33.5"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    QCOMPARE(text(janela_, u"lblCodigo"_s), u"0001"_s);
    preencheCaixas(u"1"_s, u"20052024"_s);
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(text(janela_, u"lblCodigo"_s), QString());
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Cheques"_s).size(), 2U);
}

void TstFrmMoviCheques::pressedTwiceItAddsOneCheque()
{
    abre();
    preencheCaixas(u"5"_s, u"20052024"_s);
    boxes_->exclamation(u"Valor inválido"_s);
    QWidget *botao = support::controlOf(janela_, u"btnIncluir"_s);
    const QPoint lugar = botao->mapTo(janela_->window(), botao->rect().center());
    QTest::mouseDClick(janela_->window()->windowHandle(), Qt::LeftButton, {}, lugar);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Cheques"_s).size(), 1U);
}

// --- changing

void TstFrmMoviCheques::bringsTheClickedRowIntoTheBoxes()
{
    escolhe(u"btnAlterar"_s);
    const cadastro::Fields caixas{{u"txtBanco"_s, u"BRASIL"_s},     {u"txtConta"_s, u"123-4"_s},
                                  {u"txtNumCheque"_s, u"000777"_s}, {u"txtValor"_s, u"33,50"_s},
                                  {u"txtData"_s, u"20/05/2024"_s},  {u"txtObs"_s, u"DE TERCEIRO"_s},
                                  {u"btnAlterar"_s, u"Salvar"_s},   {u"btnVoltar"_s, u"Cancelar"_s}};
    QCOMPARE(cadastro::shown(janela_, caixas), caixas);
    QVERIFY(!habilitado(u"Lista"_s) && !habilitado(u"btnIncluir"_s) && !habilitado(u"btnExcluir"_s));
    QCOMPARE(cadastro::focusOf(janela_), u"txtBanco"_s);
}

void TstFrmMoviCheques::aChangeResetsTheDayOfEntry()
{
    escolhe(u"btnAlterar"_s);
    preencheCaixas(u"44,5"_s, u"25052024"_s);
    type(janela_, u"txtObs"_s, QString());
    click(janela_, u"btnAlterar"_s);
    const QString cheque = u"SELECT * FROM Cheques"_s;
    QCOMPARE(program_->rows(cheque), (Linhas{{u"1"_s, u"12"_s, hoje, u"ITAU"_s, u"55-X"_s, u"000888"_s, u"44.5"_s,
                                              u"25/05/2024 00:00:00"_s, u"-1"_s, nulo}}));
    QCOMPARE(cadastro::columnOf(janela_, colunaValor), (QStringList{u"44,50"_s}));
    const cadastro::Fields depois{
        {u"txtBanco"_s, QString()},       {u"txtConta"_s, QString()},     {u"txtNumCheque"_s, QString()},
        {u"txtValor"_s, QString()},       {u"txtData"_s, QString()},      {u"txtObs"_s, QString()},
        {u"btnAlterar"_s, u"&Alterar"_s}, {u"btnVoltar"_s, u"&Voltar"_s}, {u"lblTotal"_s, u"44,50"_s}};
    QCOMPARE(cadastro::shown(janela_, depois), depois);
    QVERIFY(habilitado(u"Lista"_s) && habilitado(u"btnIncluir"_s) && habilitado(u"btnExcluir"_s));
}

void TstFrmMoviCheques::aBadChangeIsRefused()
{
    escolhe(u"btnAlterar"_s);
    type(janela_, u"txtValor"_s, u"cem"_s);
    type(janela_, u"txtData"_s, u"31022024"_s);
    boxes_->exclamation(u"Valor inválido"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(cadastro::focusOf(janela_), u"txtValor"_s);
    type(janela_, u"txtValor"_s, u"1"_s);
    boxes_->exclamation(dataInvalida);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(cadastro::focusOf(janela_), u"txtData"_s);
    QCOMPARE(program_->rows(u"SELECT Data, Valor FROM Cheques"_s), (Linhas{{u"10/05/2024 00:00:00"_s, u"33.5"_s}}));
    QCOMPARE(legenda(u"btnAlterar"_s), u"Salvar"_s);
}

void TstFrmMoviCheques::givesAChangeUp()
{
    escolhe(u"btnAlterar"_s);
    preencheCaixas(u"44,5"_s, u"25052024"_s);
    click(janela_, u"btnVoltar"_s);
    QCOMPARE(program_->rows(u"SELECT Data, Valor FROM Cheques"_s), (Linhas{{u"10/05/2024 00:00:00"_s, u"33.5"_s}}));
    QCOMPARE(text(janela_, u"txtBanco"_s), QString());
    QCOMPARE(legenda(u"btnAlterar"_s), u"Alterar"_s);
    QVERIFY(habilitado(u"Lista"_s));
}

void TstFrmMoviCheques::aRowThatIsGoneIsNotCheckedAndNotWritten()
{
    escolhe(u"btnAlterar"_s);
    type(janela_, u"txtValor"_s, QString());
    program_->sql(u"DELETE * FROM Cheques"_s);
    click(janela_, u"btnAlterar"_s);
    QVERIFY(program_->rows(u"SELECT * FROM Cheques"_s).empty());
    QCOMPARE(cadastro::rowsOf(janela_), semCheques);
    QCOMPARE(legenda(u"btnAlterar"_s), u"Alterar"_s);
}

void TstFrmMoviCheques::savingWithoutACodeIsRefused()
{
    escolhe(u"btnAlterar"_s);
    type(janela_, u"txtValor"_s, u"99"_s);
    ui::setTextOf(support::controlOf(janela_, u"lblCodigo"_s), QString());
    boxes_->exclamation(u"Código Inválido"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(program_->rows(u"SELECT Valor FROM Cheques"_s), (Linhas{{u"33.5"_s}}));
    QCOMPARE(legenda(u"btnAlterar"_s), u"Salvar"_s);
}

void TstFrmMoviCheques::withNothingClickedNothingIsChangedOrDeleted()
{
    linha(u"05/20/2024"_s, u"1"_s);
    abre();
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(legenda(u"btnAlterar"_s), u"Alterar"_s);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Cheques"_s).size(), 1U);
}

// --- deleting

void TstFrmMoviCheques::deletesTheClickedRow()
{
    linha(u"05/20/2024"_s, u"1"_s);
    boxes_->question(excluir, true);
    escolhe(u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Cheques"_s), (Linhas{{u"2"_s}}));
    QCOMPARE(cadastro::columnOf(janela_), (QStringList{u"0002"_s}));
    QCOMPARE(somas(), (QStringList{u"33,50"_s, u"33,50"_s, u"0,00"_s}));
}

void TstFrmMoviCheques::deletesNothingOnNo()
{
    boxes_->question(excluir, false);
    escolhe(u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Cheques"_s).size(), 1U);
}

void TstFrmMoviCheques::deletesNothingTwice()
{
    boxes_->question(excluir, true).question(excluir, true);
    escolhe(u"btnExcluir"_s);
    linha(u"05/20/2024"_s, u"1"_s);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Cheques"_s), (Linhas{{u"2"_s}}));
}

// --- the key P

void TstFrmMoviCheques::clearsAChequeAndPostsIt()
{
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = 50.0F});
    linha(u"05/20/2024"_s, u"33.33"_s, false, u"12"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    boxes_->question(lancar, true);
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Pago FROM Cheques"_s), (Linhas{{u"-1"_s}}));
    QCOMPARE(caixa(), (Linhas{{hoje, u"ABERTURA"_s, u"50"_s, nulo, u"50"_s, nulo},
                              {hoje, u"CHEQUE CÓD 0001/0012"_s, u"33.33"_s, nulo, u"83.33"_s, nulo}}));
    QCOMPARE(cadastro::columnOf(janela_, colunaPago), (QStringList{u"Sim"_s}));
    QCOMPARE(somas(), (QStringList{u"33,33"_s, u"33,33"_s, u"0,00"_s}));
}

void TstFrmMoviCheques::clearsAChequeAndRefusesThePosting()
{
    linha(u"05/20/2024"_s, u"33.33"_s, false, u"12"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    boxes_->question(lancar, false);
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Pago FROM Cheques"_s), (Linhas{{u"-1"_s}}));
    QVERIFY(caixa().empty());
}

void TstFrmMoviCheques::undoingAsksAndPostsAgain()
{
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = 50.0F});
    linha(u"05/20/2024"_s, u"10"_s, false, u"12"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    boxes_->question(lancar, true).question(lancar, true);
    key(janela_, u"Lista"_s, Qt::Key_P);
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Pago FROM Cheques"_s), (Linhas{{u"0"_s}}));
    QCOMPARE(program_->rows(u"SELECT Entrada, Saida, Saldo FROM Caixa WHERE Codigo > 1 ORDER BY Codigo"_s),
             (Linhas{{u"10"_s, nulo, u"60"_s}, {u"10"_s, nulo, u"70"_s}}));
    QCOMPARE(cadastro::columnOf(janela_, colunaPago), (QStringList{u"Não"_s}));
}

void TstFrmMoviCheques::aHandEnteredChequeIsPostedWithZeros()
{
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = 50.0F});
    abre();
    preencheCaixas(u"7"_s, u"20052024"_s);
    click(janela_, u"btnIncluir"_s);
    cadastro::clickRow(janela_, 0);
    boxes_->question(lancar, true);
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(caixa().at(1).at(1), u"CHEQUE CÓD 0001/0000"_s);
}

void TstFrmMoviCheques::thePostingFollowsTheNewestRow()
{
    core::LancaNoRazao(core::razaoCaixa, {.data = u"31/12/2024"_s, .descricao = u"FUTURO"_s, .valor = 50.0F});
    core::LancaNoRazao(core::razaoCaixa, {.data = u"01/01/2024"_s, .descricao = u"ANTIGO"_s, .valor = 5.0F});
    linha(u"05/20/2024"_s, u"10"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    boxes_->question(lancar, true);
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(caixa().at(2).at(4), u"65"_s);
    QCOMPARE(caixa().at(1).at(4), u"55"_s); // no other balance is touched
}

void TstFrmMoviCheques::onAnEmptyBookThePostingIsARunTimeError()
{
    linha(u"05/20/2024"_s, u"10"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    boxes_->question(lancar, true).critical(errorBox(13));
    key(janela_, u"Lista"_s, Qt::Key_P);
    boxes_->finish();
    QVERIFY(ui::Application::ended());
    QCOMPARE(program_->rows(u"SELECT Pago FROM Cheques"_s), (Linhas{{u"-1"_s}}));
    QVERIFY(caixa().empty());
}

void TstFrmMoviCheques::everybodyMayClear()
{
    program_->sql(u"INSERT INTO Senha (Codigo, Nome, Senha, Admin) VALUES (2, 'BALCAO', 'X', False)"_s);
    core::CodOperador = 2;
    linha(u"05/20/2024"_s, u"10"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    boxes_->question(lancar, false);
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Pago FROM Cheques"_s), (Linhas{{u"-1"_s}}));
    QVERIFY(habilitado(u"btnAlterar"_s) && habilitado(u"btnExcluir"_s));
}

void TstFrmMoviCheques::onTheRowForNothingFoundItDoesNothing()
{
    linha(u"06/20/2024"_s, u"10"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Pago FROM Cheques"_s), (Linhas{{u"0"_s}}));
    QCOMPARE(text(janela_, u"lblCodigo"_s), QString());
}

void TstFrmMoviCheques::onAChequeThatIsGoneItDoesNothing()
{
    linha(u"05/20/2024"_s, u"10"_s);
    linha(u"05/20/2024"_s, u"20"_s);
    abre();
    cadastro::clickRow(janela_, 0);
    program_->sql(u"DELETE * FROM Cheques WHERE Codigo = 1"_s);
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Codigo, Pago FROM Cheques"_s), (Linhas{{u"2"_s, u"0"_s}}));
    QVERIFY(caixa().empty());
}

void TstFrmMoviCheques::withNoRowChosenItDoesNothing()
{
    linha(u"05/20/2024"_s, u"10"_s);
    abre();
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(program_->rows(u"SELECT Pago FROM Cheques"_s), (Linhas{{u"0"_s}}));
}

void TstFrmMoviCheques::theClearedRowStaysChosen()
{
    linha(u"05/20/2024"_s, u"10"_s);
    linha(u"05/20/2024"_s, u"20"_s);
    linha(u"05/20/2024"_s, u"30"_s);
    abre();
    cadastro::clickRow(janela_, 1);
    boxes_->question(lancar, false).question(lancar, false);
    key(janela_, u"Lista"_s, Qt::Key_P);
    key(janela_, u"Lista"_s, Qt::Key_Down);
    key(janela_, u"Lista"_s, Qt::Key_P);
    QCOMPARE(cadastro::columnOf(janela_, colunaPago), (QStringList{u"Não"_s, u"Sim"_s, u"Sim"_s}));
}

void TstFrmMoviCheques::backCloses()
{
    abre();
    click(janela_, u"btnVoltar"_s);
    QVERIFY(!cadastro::isOpen(u"frmMoviCheques"_s));
}

TARVELO_TEST_MAIN(TstFrmMoviCheques)
#include "tst_frmMoviCheques.moc"
