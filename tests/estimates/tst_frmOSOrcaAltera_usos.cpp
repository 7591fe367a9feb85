#include "tests/estimates/alteraorcamento.h"

#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"

using namespace Qt::StringLiterals;
using support::click;
using support::key;
using support::type;

namespace
{

const QString deletion = u"Excluir a Orçamento selecionado"_s;
const QString printed = u"Confirma impressão do orçamento"_s;

/// The lines of the document that was printed last.
QStringList paper()
{
    QStringList lines;
    for (const printer::Page &page : printer::printer().lastDocument()) {
        lines << page.lines();
    }
    return lines;
}

} // namespace

/// The window that alters an estimate: picking one, deleting and printing it.
class TstFrmOSOrcaAlteraUsos : public AlteringTest
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { start(); }
    void cleanup() { stop(); }

    void theQueryHandsTheNumberBack_data();
    void theQueryHandsTheNumberBack();

    void deletesTheEstimateAndItsItems();
    void nothingIsDeletedOnNo();
    void deletingTwiceAsksForACode();
    void refusesToDeleteWithoutCode_data();
    void refusesToDeleteWithoutCode();
    void deletesOneThatSomebodyHasDeleted();

    void printsWithItsNumber_data();
    void printsWithItsNumber();
    void printsOnYesAlone();
    void refusesToPrintWithoutModelOrItems();
    void printsWhatIsShownOfADeletedEstimate();
};

void TstFrmOSOrcaAlteraUsos::theQueryHandsTheNumberBack_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("F1") << true;
}

void TstFrmOSOrcaAlteraUsos::theQueryHandsTheNumberBack()
{
    QFETCH(bool, byKey);
    const QString query = u"frmOSOrcaConsulta"_s;
    open();
    load(u"1"_s);
    if (byKey) {
        key(form_, u"txtCodOrcamento"_s, Qt::Key_F1);
    } else {
        click(form_, u"btnOrcaFind"_s);
    }
    QCOMPARE(int{core::ModoChamada}, 14);
    auto *picker = ui::Forms::instance().find(query);
    QVERIFY(picker != nullptr);
    cadastro::doubleClickRow(picker, 1);
    QTRY_VERIFY(!cadastro::isOpen(query));
    QCOMPARE(shown(u"txtCodOrcamento"_s), u"0002"_s);
    QTRY_COMPARE(cadastro::focusOf(form_), u"txtCodOrcamento"_s);
    QVERIFY(itemsLocked());
    key(form_, u"txtCodOrcamento"_s, Qt::Key_Return);
    QCOMPARE(shown(u"txtObs"_s), u"RETORNA SEXTA"_s);
    QVERIFY(!itemsLocked());
}

// --- deleting

void TstFrmOSOrcaAlteraUsos::deletesTheEstimateAndItsItems()
{
    openLoaded();
    boxes_->title(u"Tarvelo"_s).question(deletion, true);
    click(form_, u"btnExcluir"_s);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM Orcamento"_s), (Rows{{u"1"_s}}));
    QCOMPARE(program_->rows(u"SELECT Codigo, CodOrca FROM OrcaPecas"_s), (Rows{{u"1"_s, u"1"_s}}));
    QCOMPARE(shown(u"txtCodOrcamento"_s), QString());
    QCOMPARE(header(), QStringList(7, QString()));
    QVERIFY(cadastro::rowsOf(form_).empty());
    QCOMPARE(shown(u"lblTotal"_s), u"0,00"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtCodOrcamento"_s);
}

void TstFrmOSOrcaAlteraUsos::nothingIsDeletedOnNo()
{
    openLoaded();
    boxes_->title(u"Tarvelo"_s).question(deletion, false);
    click(form_, u"btnExcluir"_s);
    QCOMPARE(estimatesStored().size(), 2U);
    QCOMPARE(itemsStored().size(), 3U);
    QCOMPARE(shown(u"txtNome"_s), u"MARIA"_s);
}

void TstFrmOSOrcaAlteraUsos::deletingTwiceAsksForACode()
{
    openLoaded();
    boxes_->question(deletion, true);
    click(form_, u"btnExcluir"_s);
    boxes_->exclamation(u"Código do Orcamento Inválido"_s);
    click(form_, u"btnExcluir"_s);
    QCOMPARE(estimatesStored().size(), 1U);
}

void TstFrmOSOrcaAlteraUsos::refusesToDeleteWithoutCode_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("told");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("no number") << u"ABC"_s << u"Código do Orçamento Inválido"_s;
    QTest::newRow("fraction") << u"1,5"_s << notFound;
    QTest::newRow("more than a code holds") << u"9999999999"_s << notFound;
}

void TstFrmOSOrcaAlteraUsos::refusesToDeleteWithoutCode()
{
    QFETCH(QString, code);
    QFETCH(QString, told);
    open();
    if (!told.isEmpty()) {
        boxes_->exclamation(told);
    }
    load(code);
    boxes_->title(u"Tarvelo"_s).exclamation(u"Código do Orcamento Inválido"_s);
    click(form_, u"btnExcluir"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtCodOrcamento"_s);
    QCOMPARE(estimatesStored().size(), 2U);
}

/// Items that were left alone go as well.
void TstFrmOSOrcaAlteraUsos::deletesOneThatSomebodyHasDeleted()
{
    openLoaded();
    program_->sql(u"DELETE * FROM Orcamento WHERE Codigo = 2"_s);
    boxes_->question(deletion, true);
    click(form_, u"btnExcluir"_s);
    QCOMPARE(estimatesStored().size(), 1U);
    QCOMPARE(itemsStored().size(), 1U);
    QCOMPARE(shown(u"txtCodOrcamento"_s), QString());
}

// --- paper

void TstFrmOSOrcaAlteraUsos::printsWithItsNumber_data()
{
    QTest::addColumn<QString>("layout");
    QTest::newRow("text") << u"1"_s;
    QTest::newRow("sheets") << u"2"_s;
    QTest::newRow("full windows") << u"3"_s;
}

void TstFrmOSOrcaAlteraUsos::printsWithItsNumber()
{
    QFETCH(QString, layout);
    program_->config(u"LayoutOS"_s, layout);
    openLoaded();
    runtime::setClock(runtime::CDate(u"29/02/2028"_s));
    boxes_->title(u"Tarvelo"_s).question(printed, true);
    click(form_, u"btnPrint"_s);
    const QStringList lines = paper();
    for (const QString &line :
         {u"ORÇAMENTO Nº 0002"_s, u"DATA................: 15/05/2024"_s, u"CÓDIGO DO CLIENTE...: 0002"_s,
          u"NOME DO CLIENTE.....: MARIA"_s, u"TELEFONE............: (11) 5555-0002"_s,
          u"VEÍCULO MARCA/MODELO: GOL 1.0"_s, u"ANO.................: 2001/2002"_s, u"OLEO"_s, u"SOLDA"_s,
          u"OBS: RETORNA SEXTA"_s, u"À VISTA...........: R$ 70,50"_s}) {
        QVERIFY2(lines.filter(line).size() == 1, qPrintable(line + u" in\n"_s + lines.join(u'\n')));
    }
    QCOMPARE(estimatesStored().back().at(1), u"15/05/2024 00:00:00"_s);
}

void TstFrmOSOrcaAlteraUsos::printsOnYesAlone()
{
    openLoaded();
    boxes_->question(printed, true);
    click(form_, u"btnPrint"_s);
    const QStringList first = paper();
    type(form_, u"txtObs"_s, u"OUTRA"_s);
    boxes_->title(u"Tarvelo"_s).question(printed, false);
    click(form_, u"btnPrint"_s);
    QCOMPARE(paper(), first);
}

void TstFrmOSOrcaAlteraUsos::refusesToPrintWithoutModelOrItems()
{
    open();
    boxes_->title(u"Tarvelo"_s).exclamation(u"Marca Inválida"_s);
    click(form_, u"btnPrint"_s);
    QCOMPARE(cadastro::focusOf(form_), u"cboMarca"_s);
    program_->sql(u"DELETE * FROM OrcaPecas"_s);
    load(u"2"_s);
    boxes_->exclamation(u"Lista de Peças/Serviços Vazia"_s);
    click(form_, u"btnPrint"_s);
    QCOMPARE(cadastro::focusOf(form_), u"txtCodCliente"_s);
}

void TstFrmOSOrcaAlteraUsos::printsWhatIsShownOfADeletedEstimate()
{
    openLoaded();
    program_->sql(u"DELETE * FROM Orcamento"_s);
    boxes_->question(printed, true);
    click(form_, u"btnPrint"_s);
    QCOMPARE(paper().filter(u"ORÇAMENTO Nº 0002"_s).size(), 1);
}

TARVELO_TEST_MAIN(TstFrmOSOrcaAlteraUsos)
#include "tst_frmOSOrcaAltera_usos.moc"
