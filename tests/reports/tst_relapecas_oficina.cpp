#include "core/banco.h"
#include "core/funcoes.h"
#include "core/modos.h"
#include "core/modulo.h"
#include "core/razao.h"
#include "papel.h"
#include "platform/runtime/runtime.h"
#include "reports/reports.h"
#include "tools/amostra/amostra.h"

#include <QTest>

#include <map>
#include <memory>

using namespace Qt::StringLiterals;
using namespace core;
using cadastro::rowsOf;
using support::click;

namespace
{

const QString selecao = u"frmRelaSelecaoPecas"_s;
const QString doisAnos = DataSQL(u"15/05/2022"_s, 4, u"15/05/2024"_s);

/// The report, filled; that of what was sold, of two years of parts.
ui::Form *abre(qint16 modo)
{
    if (modo != modoRelaPecasVendidas) {
        return papel::abre(modo);
    }
    ui::Form *form = support::show(selecao);
    support::type(form, u"txtDataInicio"_s, u"15052022"_s);
    cadastro::choose(form, u"cboTipo"_s, 1);
    click(form, u"btnPreenche"_s);
    return papel::relatorio();
}

/// The workshop buys what runs low: two parts of three sell out here, over the counter.
void vendeQuaseTudo()
{
    auto peca = DBDados->OpenRecordset(
        u"SELECT Codigo, EstoqueMinimo FROM Pecas WHERE ControlaEstoque = True AND Codigo MOD 3 > 0"_s);
    for (; !peca.Eof(); peca.MoveNext()) {
        LancaNoRazao(razaoEstoque, {.dono = runtime::CStr(peca.value(0)),
                                    .descricao = u"BALCÃO"_s,
                                    .valor = runtime::CSng(peca.value(1)) / 2,
                                    .operacao = Operacao::Conferencia});
    }
}

int conta(const QString &consulta)
{
    int linhas = 0;
    for (auto linha = DBDados->OpenRecordset(consulta); !linha.Eof(); linha.MoveNext()) {
        ++linhas;
    }
    return linhas;
}

} // namespace

/// The reports of parts on a workshop of two years: what they show is what its database says.
class TestRelaPecasOficina : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void cleanupTestCase() { programa_.reset(); }

    void theListsHoldWhatTheDatabaseSays();
    void whatIsToBeBoughtIsBelowItsMinimum();
    void theTotalIsThatOfTheLines();

private:
    std::unique_ptr<support::Program> programa_;
};

void TestRelaPecasOficina::initTestCase()
{
    reports::registerForms();
    programa_ = std::make_unique<support::Program>();
    amostra::Preenche({.clientes = 400, .semente = 1, .relogio = runtime::CDate(u"15/05/2024 10:30:00"_s)});
    vendeQuaseTudo();
}

void TestRelaPecasOficina::cleanup()
{
    for (const QString &janela : {u"frmRelaPreVisualiza"_s, u"frmRelatorio"_s, selecao}) {
        if (ui::Form *form = ui::Forms::instance().find(janela)) {
            form->Unload();
        }
    }
}

void TestRelaPecasOficina::theListsHoldWhatTheDatabaseSays()
{
    QCOMPARE(cadastro::list(papel::abre(modoRelaEstoqueGeral))->count(),
             conta(u"SELECT Codigo FROM Pecas WHERE ControlaEstoque = True"_s));
    cleanup();
    QCOMPARE(cadastro::list(papel::abre(modoRelaPecas))->count(), conta(u"SELECT Codigo FROM Pecas"_s));
    cleanup();
    QCOMPARE(cadastro::list(abre(modoRelaPecasVendidas))->count(),
             conta(u"SELECT DISTINCT OSPecas.CodPeca FROM OSPecas, OrdemServico WHERE OSPecas.CodOS = "
                   "OrdemServico.Codigo AND PSA = 'P' AND DataIN BETWEEN "_s +
                   doisAnos) +
                 1);
}

void TestRelaPecasOficina::whatIsToBeBoughtIsBelowItsMinimum()
{
    QStringList abaixo;
    auto peca = DBDados->OpenRecordset(u"SELECT Codigo, EstoqueMinimo FROM Pecas WHERE ControlaEstoque = True"_s);
    for (; !peca.Eof(); peca.MoveNext()) {
        const QString saldo = LocalizaCampo(
            u"estoque"_s, u"Estoque"_s, u"CodPeca = "_s + runtime::CStr(peca.value(0)) + u" ORDER BY Codigo DESC"_s);
        if (!saldo.isEmpty() && runtime::CSng(saldo) < runtime::CSng(peca.value(1))) {
            abaixo << runtime::Format(peca.value(0), u"0000");
        }
    }
    QVERIFY(!abaixo.isEmpty());
    QCOMPARE(cadastro::columnOf(papel::abre(modoRelaCompras), 0), abaixo);
}

/// In 32-bit floats, line by line for each part and then part by part as they stand in the list.
void TestRelaPecasOficina::theTotalIsThatOfTheLines()
{
    std::map<QString, float> porPeca;
    auto ordem = DBDados->OpenRecordset(u"SELECT Codigo FROM OrdemServico WHERE DataIN BETWEEN "_s + doisAnos);
    for (; !ordem.Eof(); ordem.MoveNext()) {
        auto linha = DBDados->OpenRecordset(
            u"SELECT CodPeca, ValorUnit * Quantidade AS Total FROM OSPecas WHERE PSA = 'P' AND CodOS = "_s +
            runtime::CStr(ordem.value(0)));
        for (; !linha.Eof(); linha.MoveNext()) {
            porPeca[runtime::Format(linha.value(0), u"0000")] += runtime::CSng(linha.value(1));
        }
    }
    const auto linhas = rowsOf(abre(modoRelaPecasVendidas));
    float total = 0;
    for (std::size_t linha = 0; linha + 1 < linhas.size(); ++linha) {
        const float daPeca = porPeca.at(linhas[linha].at(0));
        QCOMPARE(linhas[linha].at(4), runtime::Format(daPeca, mascaraValor));
        total += daPeca;
    }
    QVERIFY(total > 1000);
    QCOMPARE(linhas.back(),
             (QStringList{QString(), u"TOTAL:"_s, QString(), QString(), runtime::Format(total, mascaraValor)}));
}

TARVELO_TEST_MAIN(TestRelaPecasOficina)
#include "tst_relapecas_oficina.moc"
