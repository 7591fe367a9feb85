#include "core/ajustes.h"

#include "core/config.h"
#include "core/modulo.h"
#include "support/boxes.h"
#include "support/program.h"

#include <QTest>

#include <algorithm>
#include <array>
#include <functional>

using namespace Qt::StringLiterals;
using core::Ajuste;
using core::Resposta;

namespace
{

const QString gravado = u"Gravação Concluída com Sucesso"_s;

QString sinal()
{
    return core::Config(u"Sinal"_s) == u"On" ? u"S"_s : u"N"_s;
}

bool gravaSinal(const QString &resposta)
{
    core::GravaINI(u"Config"_s, u"Sinal"_s, resposta == u"S" ? u"On"_s : u"Off"_s, true);
    return resposta == u"S";
}

std::function<void()> aoTomarNome;

void tomaNome(const QString &resposta)
{
    core::NomeEmpresa = resposta;
    if (aoTomarNome) {
        aoTomarNome();
    }
}

/// The settings of an invented menu.
constexpr std::array ajustes{
    Ajuste{.item = u"itmNome", .chave = u"Nome", .pergunta = u"Digite o Nome", .depois = tomaNome},
    Ajuste{.item = u"itmFax", .chave = u"Fax", .pergunta = u"Tem Fax? Digite:", .resposta = Resposta::SimNao},
    Ajuste{.item = u"itmMulta",
           .chave = u"Multa",
           .pergunta = u"Digite a multa (%)",
           .resposta = Resposta::Numero,
           .recusa = u"Você deve inserir uma multa válida",
           .gravado = core::TaxaGravada},
    Ajuste{.item = u"itmVias", .chave = u"Vias", .pergunta = u"Digite as Vias", .resposta = Resposta::Numero},
    Ajuste{.item = u"itmSinal",
           .chave = u"Sinal",
           .pergunta = u"Ativar o sinal? Digite:",
           .resposta = Resposta::SimNao,
           .mostrado = sinal,
           .grava = gravaSinal},
};

/// Chooses the command of a setting.
void escolhe(QStringView item)
{
    const auto *ajuste = std::ranges::find(ajustes, item, &Ajuste::item);
    core::PerguntaAjuste(*ajuste);
}

} // namespace

/// Settings beside those of the program: an entry of a table is all that each takes.
class TestAjustes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aTextIsWrittenAndConfirmed();
    void anEmptyAnswerChangesNothing_data();
    void anEmptyAnswerChangesNothing();
    void aYesOrNoIsAskedByItsTwoAnswers();
    void anyOtherAnswerIsPassedOver();
    void aRateIsWrittenInItsForm_data();
    void aRateIsWrittenInItsForm();
    void aRateThatIsNoNumberIsRefused();
    void aNumberWithoutWordsIsPassedOver();
    void aNumberBeyondAllBoundsIsNone();
    void aSettingMayShowAndWriteInItsOwnWay();
    void whatFollowsComesAheadOfTheConfirmation();

private:
    std::unique_ptr<support::Program> programa_;
    std::unique_ptr<support::Boxes> caixas_;
};

void TestAjustes::init()
{
    programa_ = std::make_unique<support::Program>();
    caixas_ = std::make_unique<support::Boxes>();
    caixas_->title(u"Tarvelo"_s);
}

void TestAjustes::cleanup()
{
    aoTomarNome = {};
    caixas_.reset();
    programa_.reset();
}

void TestAjustes::aTextIsWrittenAndConfirmed()
{
    caixas_->title({}).inputKeep(u"Digite o Nome"_s, u"Tarvelo"_s).information(gravado);
    escolhe(u"itmNome");
    caixas_->input(u"Digite o Nome"_s, u"Oficina do Zé"_s).information(gravado);
    escolhe(u"itmNome");
    QCOMPARE(core::Config(u"Nome"_s), u"Oficina do Zé"_s);
    caixas_->inputKeep(u"Digite o Nome"_s, u"Oficina do Zé"_s).information(gravado);
    escolhe(u"itmNome");
}

void TestAjustes::anEmptyAnswerChangesNothing_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("pergunta");
    QTest::newRow("text") << u"itmNome"_s << u"Digite o Nome"_s;
    QTest::newRow("rate") << u"itmMulta"_s << u"Digite a multa (%)"_s;
    QTest::newRow("yes or no") << u"itmFax"_s << u"Tem Fax? Digite:\nS - Sim\nN - Não"_s;
}

void TestAjustes::anEmptyAnswerChangesNothing()
{
    QFETCH(const QString, item);
    QFETCH(const QString, pergunta);
    programa_->config(u"Multa"_s, u"0,02"_s);
    programa_->config(u"Fax"_s, u"S"_s);
    caixas_->input(pergunta, {}).inputCancel(pergunta);
    escolhe(item);
    escolhe(item);
    QCOMPARE(core::Config(u"Nome"_s), u"Tarvelo"_s);
    QCOMPARE(core::Config(u"Multa"_s), u"0,02"_s);
    QCOMPARE(core::Config(u"Fax"_s), u"S"_s);
}

void TestAjustes::aYesOrNoIsAskedByItsTwoAnswers()
{
    caixas_->input(u"Tem Fax? Digite:\nS - Sim\nN - Não"_s, u"s"_s).information(gravado);
    escolhe(u"itmFax");
    QCOMPARE(core::Config(u"Fax"_s), u"S"_s);
    caixas_->input(u"Tem Fax? Digite:\nS - Sim\nN - Não"_s, u"N"_s).information(gravado);
    escolhe(u"itmFax");
    QCOMPARE(core::Config(u"Fax"_s), u"N"_s);
}

void TestAjustes::anyOtherAnswerIsPassedOver()
{
    caixas_->input(u"Tem Fax? Digite:\nS - Sim\nN - Não"_s, u"SIM"_s);
    escolhe(u"itmFax");
    QCOMPARE(core::Config(u"Fax"_s), QString());
}

void TestAjustes::aRateIsWrittenInItsForm_data()
{
    QTest::addColumn<QString>("resposta");
    QTest::addColumn<QString>("valor");
    QTest::newRow("one digit") << u"2"_s << u"0,02"_s;
    QTest::newRow("two digits") << u"15"_s << u"0,15"_s;
    QTest::newRow("rounded") << u"2,5"_s << u"0,03"_s;
    QTest::newRow("three digits") << u"150"_s << u"0,150"_s;
}

void TestAjustes::aRateIsWrittenInItsForm()
{
    QFETCH(const QString, resposta);
    QFETCH(const QString, valor);
    caixas_->input(u"Digite a multa (%)"_s, resposta).information(gravado);
    escolhe(u"itmMulta");
    QCOMPARE(core::Config(u"Multa"_s), valor);
    caixas_->inputKeep(u"Digite a multa (%)"_s, valor).information(gravado);
    escolhe(u"itmMulta"); // shown as it is stored
}

void TestAjustes::aRateThatIsNoNumberIsRefused()
{
    programa_->config(u"Multa"_s, u"0,02"_s);
    caixas_->input(u"Digite a multa (%)"_s, u"dois"_s).exclamation(u"Você deve inserir uma multa válida"_s);
    escolhe(u"itmMulta");
    QCOMPARE(core::Config(u"Multa"_s), u"0,02"_s);
}

void TestAjustes::aNumberWithoutWordsIsPassedOver()
{
    caixas_->input(u"Digite as Vias"_s, u"duas"_s).input(u"Digite as Vias"_s, u"2"_s).information(gravado);
    escolhe(u"itmVias");
    QCOMPARE(core::Config(u"Vias"_s), QString());
    escolhe(u"itmVias");
    QCOMPARE(core::Config(u"Vias"_s), u"2"_s);
}

/// It reads as a number, and working with it is the run-time error of an overflow.
void TestAjustes::aNumberBeyondAllBoundsIsNone()
{
    QVERIFY(core::NumeroValido(u"1e308"_s));
    QVERIFY(!core::NumeroValido(u"1e309"_s));
    QVERIFY(!core::NumeroValido(u"um"_s));
    QVERIFY(!core::NumeroValido({}));
    caixas_->input(u"Digite a multa (%)"_s, u"1e309"_s).exclamation(u"Você deve inserir uma multa válida"_s);
    escolhe(u"itmMulta");
    QCOMPARE(core::Config(u"Multa"_s), QString());
}

void TestAjustes::aSettingMayShowAndWriteInItsOwnWay()
{
    const QString pergunta = u"Ativar o sinal? Digite:\nS - Sim\nN - Não"_s;
    programa_->config(u"Sinal"_s, u"On"_s);
    caixas_->inputKeep(pergunta, u"S"_s).information(gravado);
    escolhe(u"itmSinal");
    QCOMPARE(core::Config(u"Sinal"_s), u"On"_s);
    caixas_->input(pergunta, u"n"_s); // it says itself that nothing is to be confirmed
    escolhe(u"itmSinal");
    QCOMPARE(core::Config(u"Sinal"_s), u"Off"_s);
    caixas_->inputKeep(pergunta, u"N"_s);
    escolhe(u"itmSinal");
}

void TestAjustes::whatFollowsComesAheadOfTheConfirmation()
{
    aoTomarNome = [this] { caixas_->title(u"Oficina"_s); }; // which the confirmation has to carry then
    caixas_->input(u"Digite o Nome"_s, u"Oficina"_s).information(gravado);
    escolhe(u"itmNome");
    QCOMPARE(core::NomeEmpresa, u"Oficina"_s);
}

TARVELO_TEST_MAIN(TestAjustes)
#include "tst_ajustes.moc"
