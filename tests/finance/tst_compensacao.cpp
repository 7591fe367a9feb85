#include "finance/compensacao.h"

#include "core/financas.h"
#include "core/razao.h"
#include "support/errors.h"
#include "support/program.h"

#include <QTest>

using namespace Qt::StringLiterals;
using finance::AlternaCheque;
using finance::LancaCheque;
using support::errorOf;

namespace
{

const QString nulo = u"<Null>"_s;
const QString hoje = u"15/05/2024 00:00:00"_s;

using Linhas = std::vector<QStringList>;

} // namespace

/// Cheques that are cleared and taken back, and their postings to the cash book.
class TestCompensacao : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { programa_.reset(); }

    void turnsAChequeEitherWay();
    void tellsWhatThePostingNeeds();
    void turnsNothingElse();
    void aStateNeverWrittenIsCleared();
    void aChequeThatIsGoneGivesNothing();
    void aChequeWithoutAValueIsLeftAsItIs();
    void thePostingIsAnEntryOfToday();
    void thePostingOfAChequeByHandEndsInZeros();
    void theBalanceFollowsTheNewestRow();
    void theBalanceIsRoundedTo32Bits();
    void anEmptyBookTakesNoPosting();

private:
    void cheque(const QString &codOs, const QString &valor);

    std::unique_ptr<support::Program> programa_;
};

void TestCompensacao::init()
{
    programa_ = std::make_unique<support::Program>();
}

void TestCompensacao::cheque(const QString &codOs, const QString &valor)
{
    core::IncluiCheque({.codOs = codOs,
                        .banco = u"BRASIL"_s,
                        .conta = u"123-4"_s,
                        .numero = u"000777"_s,
                        .valor = valor,
                        .vencimento = u"20/06/2024"_s,
                        .observacoes = {}});
}

void TestCompensacao::turnsAChequeEitherWay()
{
    cheque(u"7"_s, u"33,33"_s);
    const QString pago = u"SELECT Pago FROM Cheques"_s;
    AlternaCheque(u"0001"_s);
    QCOMPARE(programa_->rows(pago), (Linhas{{u"-1"_s}}));
    AlternaCheque(u"0001"_s);
    QCOMPARE(programa_->rows(pago), (Linhas{{u"0"_s}}));
}

void TestCompensacao::tellsWhatThePostingNeeds()
{
    cheque(u"7"_s, u"1,00"_s);
    cheque(u"12"_s, u"33,33"_s);
    const auto alternado = AlternaCheque(u"0002"_s);
    QVERIFY(alternado);
    QCOMPARE(alternado->codigo, 2);
    QCOMPARE(alternado->codOs, 12);
    QCOMPARE(support::exact(alternado->valor), support::exact(33.33F));
}

void TestCompensacao::turnsNothingElse()
{
    cheque(u"7"_s, u"1,00"_s);
    cheque(u"12"_s, u"33,33"_s);
    auto esperado = programa_->rows(u"SELECT * FROM Cheques ORDER BY Codigo"_s);
    AlternaCheque(u"0002"_s);
    esperado[1][8] = u"-1"_s;
    QCOMPARE(programa_->rows(u"SELECT * FROM Cheques ORDER BY Codigo"_s), esperado);
    QVERIFY(programa_->rows(u"SELECT * FROM Caixa"_s).empty());
}

void TestCompensacao::aStateNeverWrittenIsCleared()
{
    cheque(u"0"_s, u"1,00"_s);
    programa_->sql(u"UPDATE Cheques SET Pago = Null"_s);
    AlternaCheque(u"1"_s);
    QCOMPARE(programa_->rows(u"SELECT Pago FROM Cheques"_s), (Linhas{{u"-1"_s}}));
}

void TestCompensacao::aChequeThatIsGoneGivesNothing()
{
    cheque(u"7"_s, u"1,00"_s);
    QVERIFY(!AlternaCheque(u"0002"_s));
    QCOMPARE(programa_->rows(u"SELECT Pago FROM Cheques"_s), (Linhas{{u"0"_s}}));
}

void TestCompensacao::aChequeWithoutAValueIsLeftAsItIs()
{
    cheque(u"7"_s, u"1,00"_s);
    programa_->sql(u"UPDATE Cheques SET Valor = Null"_s);
    QCOMPARE(errorOf([] { AlternaCheque(u"0001"_s); }), 94);
    QCOMPARE(programa_->rows(u"SELECT Pago FROM Cheques"_s), (Linhas{{u"0"_s}}));
}

void TestCompensacao::thePostingIsAnEntryOfToday()
{
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = 50.0F});
    LancaCheque({.codigo = 3, .codOs = 12, .valor = 33.33F});
    const Linhas esperado{{u"2"_s, hoje, u"CHEQUE CÓD 0003/0012"_s, u"33.33"_s, nulo, u"83.33"_s, nulo}};
    QCOMPARE(programa_->rows(u"SELECT * FROM Caixa WHERE Codigo = 2"_s), esperado);
}

void TestCompensacao::thePostingOfAChequeByHandEndsInZeros()
{
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = 50.0F});
    cheque(u"0"_s, u"1,00"_s);
    LancaCheque(*AlternaCheque(u"1"_s));
    programa_->sql(u"UPDATE Cheques SET CodOs = Null"_s);
    LancaCheque(*AlternaCheque(u"1"_s));
    QCOMPARE(programa_->rows(u"SELECT Descricao FROM Caixa WHERE Codigo > 1"_s),
             (Linhas{{u"CHEQUE CÓD 0001/0000"_s}, {u"CHEQUE CÓD 0001/0000"_s}}));
}

/// The one with the highest code, whatever its date.
void TestCompensacao::theBalanceFollowsTheNewestRow()
{
    core::LancaNoRazao(core::razaoCaixa, {.data = u"31/12/2024"_s, .descricao = u"FUTURO"_s, .valor = 50.0F});
    core::LancaNoRazao(
        core::razaoCaixa,
        {.data = u"01/01/2024"_s, .descricao = u"ANTIGO"_s, .valor = 80.0F, .operacao = core::Operacao::Saida});
    LancaCheque({.codigo = 1, .codOs = 0, .valor = 10.0F});
    QCOMPARE(programa_->rows(u"SELECT Saldo FROM Caixa WHERE Codigo = 3"_s), (Linhas{{u"-20"_s}}));
}

/// The balance before it comes as a text of seven digits, and the sum is a Single.
void TestCompensacao::theBalanceIsRoundedTo32Bits()
{
    core::LancaNoRazao(core::razaoCaixa, {.descricao = u"ABERTURA"_s, .valor = 1234567.875F});
    LancaCheque({.codigo = 1, .codOs = 0, .valor = 0.1F});
    QCOMPARE(programa_->value(u"SELECT Saldo FROM Caixa WHERE Codigo = 2"_s), runtime::Value(1234568.0F + 0.1F));
}

void TestCompensacao::anEmptyBookTakesNoPosting()
{
    cheque(u"7"_s, u"1,00"_s);
    QCOMPARE(errorOf([] { LancaCheque({.codigo = 1, .codOs = 7, .valor = 1.0F}); }), 13);
    QVERIFY(programa_->rows(u"SELECT * FROM Caixa"_s).empty());
}

TARVELO_TEST_MAIN(TestCompensacao)
#include "tst_compensacao.moc"
