#include "tests/finance/fiados.h"

#include "core/banco.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "platform/dao/database.h"
#include "platform/dao/unit.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/application.h"
#include "platform/ui/listview.h"

#include <QLineEdit>
#include <QRadioButton>

using namespace Qt::StringLiterals;
using cadastro::clickRow;
using cadastro::columnOf;
using cadastro::Fields;
using cadastro::Rows;
using cadastro::shown;
using fiados::nulo;
using support::click;
using support::control;
using support::key;
using support::text;
using support::type;

namespace
{

const QString janela = u"frmMoviFiadosConta"_s;
const QString exclusao = u"Excluir o Registro Selecionado"_s;
constexpr int linhasDaCadeia = 1000;

} // namespace

/// Rows of a customer's account are added, changed and deleted, and his balances with them.
class TstFrmMoviFiadosContaLanca : public fiados::Case
{
    Q_OBJECT

private slots:
    void init() { prepara(); }
    void cleanup() { termina(); }

    void refusesABadRow_data();
    void refusesABadRow();
    void theBoxesAreMasked();
    void anEmptyAccountTakesItsFirstRow_data();
    void anEmptyAccountTakesItsFirstRow();
    void aPaymentLowersTheDebt();
    void theNextRowIsOfToday();
    void aDateInThePastMovesInItsOrderAtOnce();
    void twoRowsOfADayStandByTheirCodes();
    void aRowFromElsewhereIsMendedByTheNextChange();
    void recalculatesThisCustomerAlone();
    void roundsTo32BitsRowByRow();
    void balancesOfSevenDigitsAndMore();

    void bringsTheSelectedRowIntoTheBoxes();
    void aChargeBecomesAPayment();
    void refusesABadChange_data();
    void refusesABadChange();
    void givesAChangeUp();
    void withNothingSelectedNothingIsChanged();
    void aRowThatIsGoneIsNotWritten();
    void anyOperatorChangesAndDeletes();

    void deletesTheSelectedRow();
    void deletesNothingOnNo();
    void withNothingSelectedNothingIsDeleted();
    void aSecondDeleteNeedsAnotherRow();
    void aRowThatIsGoneIsDeletedWithoutHarm();

private:
    void abre(qint32 cliente = 1);
    void preenche(const QString &data, const QString &descricao, const QString &valor);
    void inclui(const QString &data, const QString &opcao, const QString &valor);
    void cadeia(qint32 cliente);
    std::vector<float> saldos(qint32 cliente = 1) const;
    std::vector<float> somados(qint32 cliente = 1) const;
    Rows conta(qint32 cliente = 1) const;
};

/// On a customer with an account of his own.
void TstFrmMoviFiadosContaLanca::abre(qint32 cliente)
{
    program_->customer(u"ANA"_s);
    core::CodigoConsulta = cliente;
    Case::abre(janela);
}

void TstFrmMoviFiadosContaLanca::preenche(const QString &data, const QString &descricao, const QString &valor)
{
    type(janela_, u"txtData"_s, data);
    type(janela_, u"txtDescricao"_s, descricao);
    type(janela_, u"txtValor"_s, valor);
}

void TstFrmMoviFiadosContaLanca::inclui(const QString &data, const QString &opcao, const QString &valor)
{
    click(janela_, opcao);
    preenche(data, u"lançamento"_s, valor);
    click(janela_, u"btnIncluir"_s);
}

/// A long account as others leave it, three rows a day, every third one a payment; the balances are yet to come.
void TstFrmMoviFiadosContaLanca::cadeia(qint32 cliente)
{
    const dao::Unit lote;
    for (int i = 0; i < linhasDaCadeia; ++i) {
        core::AcrescentaLinha(u"ContaFiado"_s, [&](dao::Recordset &linha) {
            linha[u"CodCliente"] = cliente;
            linha[u"Data"] = runtime::DateAdd(u"d", i / 3, runtime::Date{45000}); // 15/03/2023
            linha[u"Descricao"] = u"LANÇAMENTO"_s;
            linha[i % 3 == 2 ? u"Saida" : u"Entrada"] = float(i % 97) * 0.37F + 0.01F;
            linha[u"Saldo"] = 0.0F;
        });
    }
}

/// The balances in the order of the account.
std::vector<float> TstFrmMoviFiadosContaLanca::saldos(qint32 cliente) const
{
    std::vector<float> todos;
    for (auto linhas = core::DBDados->OpenRecordset(
             u"SELECT Saldo FROM ContaFiado WHERE CodCliente = %1 ORDER BY Data, Codigo"_s.arg(cliente));
         !linhas.Eof(); linhas.MoveNext()) {
        todos.push_back(std::get<float>(linhas.value(u"Saldo")));
    }
    return todos;
}

/// What they have to be: each sum rounded to 32 bits before the next.
std::vector<float> TstFrmMoviFiadosContaLanca::somados(qint32 cliente) const
{
    std::vector<float> todos;
    float saldo = 0;
    for (auto linhas = core::DBDados->OpenRecordset(
             u"SELECT Entrada, Saida FROM ContaFiado WHERE CodCliente = %1 ORDER BY Data, Codigo"_s.arg(cliente));
         !linhas.Eof(); linhas.MoveNext()) {
        const runtime::Value entrada = linhas.value(u"Entrada");
        saldo += runtime::IsNull(entrada) ? -std::get<float>(linhas.value(u"Saida")) : std::get<float>(entrada);
        todos.push_back(saldo);
    }
    return todos;
}

Rows TstFrmMoviFiadosContaLanca::conta(qint32 cliente) const
{
    return program_->rows(
        u"SELECT Codigo, Entrada, Saida, Saldo FROM ContaFiado WHERE CodCliente = %1 ORDER BY Data, Codigo"_s.arg(
            cliente));
}

// --- adding

void TstFrmMoviFiadosContaLanca::refusesABadRow_data()
{
    QTest::addColumn<QString>("data");
    QTest::addColumn<QString>("descricao");
    QTest::addColumn<QString>("valor");
    QTest::addColumn<QString>("mensagem");
    QTest::addColumn<QString>("foco");
    const QString dia = u"15052024"_s;
    QTest::newRow("nothing") << QString() << QString() << QString() << u"Data Inválida"_s << u"txtData"_s;
    QTest::newRow("no such day") << u"31022024"_s << u"a"_s << u"1"_s << u"Data Inválida"_s << u"txtData"_s;
    QTest::newRow("no text") << dia << QString() << QString() << u"Descrição Inválida"_s << u"txtDescricao"_s;
    QTest::newRow("no value") << dia << u"a"_s << QString() << u"Valor Inválido"_s << u"txtValor"_s;
    QTest::newRow("no number") << dia << u"a"_s << u"1,2,3"_s << u"Valor Inválido"_s << u"txtValor"_s;
}

void TstFrmMoviFiadosContaLanca::refusesABadRow()
{
    QFETCH(QString, data);
    QFETCH(QString, descricao);
    QFETCH(QString, valor);
    QFETCH(QString, mensagem);
    abre();
    preenche(data, descricao, valor);
    boxes_->exclamation(mensagem);
    click(janela_, u"btnIncluir"_s);
    QTEST(cadastro::focusOf(janela_), "foco");
    QCOMPARE(conta(), Rows());
}

void TstFrmMoviFiadosContaLanca::theBoxesAreMasked()
{
    abre();
    key(janela_, u"txtData"_s, Qt::Key_F1);
    QCOMPARE(text(janela_, u"txtData"_s), u"15/05/2024"_s);
    type(janela_, u"txtData"_s, u"010624"_s);
    QCOMPARE(text(janela_, u"txtData"_s), u"01/06/2024"_s);
    type(janela_, u"txtDescricao"_s, u"peças d'água"_s);
    QCOMPARE(text(janela_, u"txtDescricao"_s), u"PEÇAS D'ÁGUA"_s);
    type(janela_, u"txtValor"_s, u"1234,5"_s);
    QCOMPARE(text(janela_, u"txtValor"_s), u"1.234,50"_s);
    type(janela_, u"txtValor"_s, u"1e3"_s); // the letter is not taken
    QCOMPARE(text(janela_, u"txtValor"_s), u"13,00"_s);
    click(janela_, u"btnIncluir"_s);
    QCOMPARE(program_->rows(u"SELECT * FROM ContaFiado"_s),
             (Rows{{u"1"_s, u"1"_s, u"01/06/2024 00:00:00"_s, u"PEÇAS D'ÁGUA"_s, u"13"_s, nulo, u"13"_s}}));
}

void TstFrmMoviFiadosContaLanca::anEmptyAccountTakesItsFirstRow_data()
{
    QTest::addColumn<QString>("opcao");
    QTest::addColumn<QStringList>("linha");
    QTest::newRow("a charge") << u"optEntrada"_s << QStringList{u"1"_s, u"1234.56"_s, nulo, u"1234.56"_s};
    QTest::newRow("a payment") << u"optSaida"_s << QStringList{u"1"_s, nulo, u"1234.56"_s, u"-1234.56"_s};
}

void TstFrmMoviFiadosContaLanca::anEmptyAccountTakesItsFirstRow()
{
    QFETCH(QString, opcao);
    QFETCH(QStringList, linha);
    abre();
    QVERIFY(control<QRadioButton>(janela_, u"optEntrada"_s)->isChecked());
    inclui(u"15052024"_s, opcao, u"1.234,56"_s);
    QCOMPARE(conta(), Rows{linha});
    QCOMPARE(columnOf(janela_), QStringList{u"0001"_s});
}

void TstFrmMoviFiadosContaLanca::aPaymentLowersTheDebt()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"100"_s);
    abre();
    inclui(u"15052024"_s, u"optSaida"_s, u"30,5"_s);
    QCOMPARE(conta().back(), (QStringList{u"2"_s, nulo, u"30.5"_s, u"69.5"_s}));
    QCOMPARE(columnOf(janela_, 5), (QStringList{u"100,00"_s, u"69,50"_s}));
    QVERIFY(control<QRadioButton>(janela_, u"optSaida"_s)->isChecked());
}

void TstFrmMoviFiadosContaLanca::theNextRowIsOfToday()
{
    abre();
    inclui(u"10062024"_s, u"optEntrada"_s, u"5"_s);
    const Fields depois{{u"txtData"_s, u"15/05/2024"_s},
                        {u"txtDescricao"_s, QString()},
                        {u"txtValor"_s, QString()},
                        {u"lblCodigo"_s, u"0001"_s},
                        {u"lblNome"_s, u"ANA"_s}};
    QCOMPARE(shown(janela_, depois), depois);
    QCOMPARE(cadastro::focusOf(janela_), u"txtData"_s);
    QCOMPARE(control<QLineEdit>(janela_, u"txtData"_s)->selectedText(),
             u"15/05/2024"_s); // another day is typed over it
}

void TstFrmMoviFiadosContaLanca::aDateInThePastMovesInItsOrderAtOnce()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"100"_s);
    lancamento(1, u"05/12/2024"_s, u"PAGAMENTO"_s, u"Null"_s, u"40"_s, u"60"_s);
    abre();
    inclui(u"11052024"_s, u"optEntrada"_s, u"7"_s);
    QCOMPARE(
        conta(),
        (Rows{{u"1"_s, u"100"_s, nulo, u"100"_s}, {u"3"_s, u"7"_s, nulo, u"107"_s}, {u"2"_s, nulo, u"40"_s, u"67"_s}}));
    QCOMPARE(columnOf(janela_, 5), (QStringList{u"100,00"_s, u"107,00"_s, u"67,00"_s}));
}

void TstFrmMoviFiadosContaLanca::twoRowsOfADayStandByTheirCodes()
{
    abre();
    for (const QString &valor : {u"1"_s, u"2"_s, u"4"_s}) {
        inclui(u"15052024"_s, u"optEntrada"_s, valor);
    }
    QCOMPARE(columnOf(janela_, 5), (QStringList{u"1,00"_s, u"3,00"_s, u"7,00"_s}));
}

void TstFrmMoviFiadosContaLanca::aRowFromElsewhereIsMendedByTheNextChange()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"100"_s);
    core::LancaNoRazao(core::razaoContaFiado, {.dono = u"1"_s,
                                               .data = u"01/05/2024"_s,
                                               .descricao = u"PAGAMENTO: ANA"_s,
                                               .valor = u"30"_s,
                                               .operacao = core::Operacao::Saida});
    abre();
    QCOMPARE(columnOf(janela_, 5), (QStringList{u"70,00"_s, u"100,00"_s}));
    inclui(u"15052024"_s, u"optEntrada"_s, u"1"_s);
    QCOMPARE(columnOf(janela_, 5), (QStringList{u"-30,00"_s, u"70,00"_s, u"71,00"_s}));
}

void TstFrmMoviFiadosContaLanca::recalculatesThisCustomerAlone()
{
    lancamento(2, u"05/10/2024"_s, u"DO OUTRO"_s, u"100"_s, u"Null"_s, u"55"_s);
    abre();
    inclui(u"15052024"_s, u"optEntrada"_s, u"1"_s);
    QCOMPARE(conta(), (Rows{{u"2"_s, u"1"_s, nulo, u"1"_s}}));
    QCOMPARE(conta(2), (Rows{{u"1"_s, u"100"_s, nulo, u"55"_s}}));
}

void TstFrmMoviFiadosContaLanca::roundsTo32BitsRowByRow()
{
    cadeia(1);
    cadeia(2);
    abre();
    inclui(u"15052024"_s, u"optSaida"_s, u"0,1"_s);
    QCOMPARE(saldos().size(), std::size_t{linhasDaCadeia + 1});
    QCOMPARE(saldos(), somados());
    const float antes = saldos().back();

    inclui(u"05072023"_s, u"optEntrada"_s, u"1.234,56"_s); // among the rows of the chain
    QCOMPARE(saldos().size(), std::size_t{linhasDaCadeia + 2});
    QCOMPARE(saldos(), somados());
    QVERIFY(saldos().back() > antes + 1234);
    QCOMPARE(saldos(2), std::vector<float>(linhasDaCadeia, 0));
}

void TstFrmMoviFiadosContaLanca::balancesOfSevenDigitsAndMore()
{
    lancamento(1, u"05/10/2024"_s, u"FROTA"_s, u"16777216"_s, u"Null"_s, u"16777216"_s);
    abre();
    inclui(u"15052024"_s, u"optEntrada"_s, u"1"_s); // less than half of what the next 32-bit balance lies away
    inclui(u"15052024"_s, u"optEntrada"_s, u"3"_s);
    QCOMPARE(saldos(), (std::vector<float>{16777216.0F, 16777216.0F, 16777220.0F}));
    QCOMPARE(saldos(), somados());
}

// --- changing

void TstFrmMoviFiadosContaLanca::bringsTheSelectedRowIntoTheBoxes()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"100"_s);
    lancamento(1, u"05/12/2024"_s, u"PAGAMENTO"_s, u"Null"_s, u"40.5"_s, u"59.5"_s);
    abre();
    clickRow(janela_, 1);
    click(janela_, u"btnAlterar"_s);
    const Fields caixas{{u"txtData"_s, u"12/05/2024"_s},
                        {u"txtDescricao"_s, u"PAGAMENTO"_s},
                        {u"txtValor"_s, u"40,50"_s},
                        {u"btnAlterar"_s, u"Salvar"_s},
                        {u"btnVoltar"_s, u"Cancelar"_s}};
    QCOMPARE(shown(janela_, caixas), caixas);
    QVERIFY(control<QRadioButton>(janela_, u"optSaida"_s)->isChecked());
    QCOMPARE(cadastro::focusOf(janela_), u"txtData"_s);
}

void TstFrmMoviFiadosContaLanca::aChargeBecomesAPayment()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"100"_s);
    lancamento(1, u"05/12/2024"_s, u"SERVIÇO"_s, u"40"_s, u"Null"_s, u"140"_s);
    abre();
    clickRow(janela_, 0);
    click(janela_, u"btnAlterar"_s);
    click(janela_, u"optSaida"_s);
    preenche(u"13052024"_s, u"pagou"_s, u"25,25"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(conta(), (Rows{{u"2"_s, u"40"_s, nulo, u"40"_s}, {u"1"_s, nulo, u"25.25"_s, u"14.75"_s}}));
    QCOMPARE(columnOf(janela_, 3), (QStringList{u"40,00"_s, u" "_s}));
    QCOMPARE(columnOf(janela_, 2), (QStringList{u"SERVIÇO"_s, u"PAGOU"_s}));
    const Fields depois{{u"txtData"_s, QString()},
                        {u"txtDescricao"_s, QString()},
                        {u"txtValor"_s, QString()},
                        {u"btnAlterar"_s, u"&Alterar"_s},
                        {u"btnVoltar"_s, u"&Voltar"_s}};
    QCOMPARE(shown(janela_, depois), depois);
    QCOMPARE(cadastro::focusOf(janela_), u"Lista"_s);
    QCOMPARE(cadastro::list(janela_)->selectedRow(), 1);
}

void TstFrmMoviFiadosContaLanca::refusesABadChange_data()
{
    QTest::addColumn<QString>("caixa");
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("mensagem");
    QTest::newRow("date") << u"txtData"_s << u"31022024"_s << u"Data Inválida"_s;
    QTest::newRow("text") << u"txtDescricao"_s << QString() << u"Descrição Inválida"_s;
    QTest::newRow("value") << u"txtValor"_s << u"1,2,3"_s << u"Valor Inválido"_s;
}

void TstFrmMoviFiadosContaLanca::refusesABadChange()
{
    QFETCH(QString, caixa);
    QFETCH(QString, texto);
    QFETCH(QString, mensagem);
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"100"_s);
    abre();
    clickRow(janela_, 0);
    click(janela_, u"btnAlterar"_s);
    type(janela_, caixa, texto);
    boxes_->exclamation(mensagem);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(cadastro::focusOf(janela_), caixa);
    QCOMPARE(text(janela_, u"btnAlterar"_s), u"Salvar"_s);
    QCOMPARE(conta(), (Rows{{u"1"_s, u"100"_s, nulo, u"100"_s}}));
}

void TstFrmMoviFiadosContaLanca::givesAChangeUp()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"55"_s);
    abre();
    clickRow(janela_, 0);
    click(janela_, u"btnAlterar"_s);
    type(janela_, u"txtValor"_s, u"1"_s);
    click(janela_, u"btnVoltar"_s);
    QCOMPARE(conta(), (Rows{{u"1"_s, u"100"_s, nulo, u"55"_s}})); // not recalculated either
    QCOMPARE(text(janela_, u"txtData"_s), QString());
    QVERIFY(cadastro::isOpen(janela));
}

void TstFrmMoviFiadosContaLanca::withNothingSelectedNothingIsChanged()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"100"_s);
    abre();
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(text(janela_, u"btnAlterar"_s), u"&Alterar"_s);
    QCOMPARE(text(janela_, u"txtData"_s), QString());
}

void TstFrmMoviFiadosContaLanca::aRowThatIsGoneIsNotWritten()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"100"_s);
    lancamento(1, u"05/12/2024"_s, u"SERVIÇO"_s, u"40"_s, u"Null"_s, u"140"_s);
    abre();
    clickRow(janela_, 0);
    click(janela_, u"btnAlterar"_s);
    program_->sql(u"DELETE * FROM ContaFiado WHERE Codigo = 1"_s);
    type(janela_, u"txtValor"_s, u"99"_s);
    click(janela_, u"btnAlterar"_s);
    QCOMPARE(conta(), (Rows{{u"2"_s, u"40"_s, nulo, u"40"_s}}));
    QCOMPARE(columnOf(janela_), QStringList{u"0002"_s});
    QCOMPARE(text(janela_, u"btnAlterar"_s), u"&Alterar"_s);
}

void TstFrmMoviFiadosContaLanca::anyOperatorChangesAndDeletes()
{
    program_->sql(u"INSERT INTO Senha (Codigo, Nome, Senha, Admin) VALUES (2, 'BALCAO', 'X', False)"_s);
    core::CodOperador = 2;
    abre();
    QVERIFY(support::controlOf(janela_, u"btnAlterar"_s)->isEnabled());
    QVERIFY(support::controlOf(janela_, u"btnExcluir"_s)->isEnabled());
}

// --- deleting

void TstFrmMoviFiadosContaLanca::deletesTheSelectedRow()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"100"_s);
    lancamento(1, u"05/12/2024"_s, u"SERVIÇO"_s, u"40"_s, u"Null"_s, u"140"_s);
    abre();
    clickRow(janela_, 0);
    boxes_->question(exclusao, true);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(conta(), (Rows{{u"2"_s, u"40"_s, nulo, u"40"_s}}));
    QCOMPARE(columnOf(janela_, 5), QStringList{u"40,00"_s});
}

void TstFrmMoviFiadosContaLanca::deletesNothingOnNo()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"55"_s);
    abre();
    clickRow(janela_, 0);
    boxes_->question(exclusao, false);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(conta(), (Rows{{u"1"_s, u"100"_s, nulo, u"55"_s}}));
}

void TstFrmMoviFiadosContaLanca::withNothingSelectedNothingIsDeleted()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"100"_s);
    abre();
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(conta().size(), 1U);
}

/// The row goes with its deletion, and no other one is selected in its place.
void TstFrmMoviFiadosContaLanca::aSecondDeleteNeedsAnotherRow()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"100"_s);
    lancamento(1, u"05/12/2024"_s, u"SERVIÇO"_s, u"40"_s, u"Null"_s, u"140"_s);
    abre();
    clickRow(janela_, 0);
    boxes_->question(exclusao, true);
    click(janela_, u"btnExcluir"_s);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(conta().size(), 1U);
}

void TstFrmMoviFiadosContaLanca::aRowThatIsGoneIsDeletedWithoutHarm()
{
    lancamento(1, u"05/10/2024"_s, u"PEÇAS"_s, u"100"_s, u"Null"_s, u"100"_s);
    lancamento(1, u"05/12/2024"_s, u"SERVIÇO"_s, u"40"_s, u"Null"_s, u"140"_s);
    abre();
    clickRow(janela_, 0);
    program_->sql(u"DELETE * FROM ContaFiado WHERE Codigo = 1"_s);
    boxes_->question(exclusao, true);
    click(janela_, u"btnExcluir"_s);
    QCOMPARE(conta(), (Rows{{u"2"_s, u"40"_s, nulo, u"40"_s}}));
}

TARVELO_TEST_MAIN(TstFrmMoviFiadosContaLanca)
#include "tst_frmMoviFiadosConta_lanca.moc"
