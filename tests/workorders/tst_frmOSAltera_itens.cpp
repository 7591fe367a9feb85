#include "tests/workorders/alteraos.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;
using support::click;
using support::control;
using support::key;
using support::type;

namespace
{

const QString gone = u"Código da Ordem de Serviço Não Localizado"_s;

QStringList prompts()
{
    return {u"Código"_s, u"Tipo:\nP - Peça\nS - Serviços\nA - Avulso"_s, u"Quantidade"_s, u"Descrição"_s,
            u"Valor Unitário"_s};
}

} // namespace

/// The items of an order that is altered: each change is in the tables when the window is left without confirming. And
/// the calculator behind them.
class TstFrmOSAlteraItens : public AlteringWindowTest
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { startWithOrders(); }
    void cleanup() { stop(); }

    void everyItemGoesToItsList();
    void theCompactLayoutKeepsWhatIsChargedInOneList();
    void anItemIsWrittenAtOnce_data();
    void anItemIsWrittenAtOnce();
    void materialIsWrittenAtOnceInTheCompactLayout();
    void aCheckRefusesAnItem();
    void anItemIsRemovedAtOnce_data();
    void anItemIsRemovedAtOnce();
    void materialIsRemovedWithoutATotal();
    void anItemIsEditedAtOnce_data();
    void anItemIsEditedAtOnce();
    void theKeysDoNothingInTheMaterial();
    void aClosedOrderTakesNoItem();
    void withoutAnOrderNothingIsWritten();
    void anOrderDeletedMeanwhileTakesNoItem();
    void anItemDeletedMeanwhileIsTold();

    void theCalculatorHoldsItsTextsAfterLoad();
    void theCalculatorPricesTheOrder();
    void theCalculatorRefuses_data();
    void theCalculatorRefuses();
    void theCalculatorRefusesWhatItCannotTake_data();
    void theCalculatorRefusesWhatItCannotTake();
    void theCalculatorWritesNothing();
    void itemsHaveNoPlaceInTheCalculator();

private:
    void answer(const QStringList &answers) const;
    Rows newItems() const;
};

void TstFrmOSAlteraItens::answer(const QStringList &answers) const
{
    for (int i = 0; i < answers.size(); ++i) {
        answers.at(i).isEmpty() ? boxes_->inputCancel(prompts().at(i)) : boxes_->input(prompts().at(i), answers.at(i));
    }
}

/// What was added to the order as it stood.
OrderWindowTest::Rows TstFrmOSAlteraItens::newItems() const
{
    return program_->rows(u"SELECT CodOS, CodPeca, Quantidade, Descricao, ValorUnit, PSA FROM OSPecas "
                          "WHERE Codigo > 7"_s);
}

void TstFrmOSAlteraItens::everyItemGoesToItsList()
{
    openOrder(full);
    QCOMPARE(rows(u"Lista"_s), (Rows{{u"0001"_s, u"P"_s, u"2,500"_s, u"OLEO"_s, u"27,50"_s, u"68,75"_s},
                                     {u"0000"_s, u"A"_s, u"01"_s, u"AVULSA"_s, u"3,00"_s, u"3,00"_s}}));
    QCOMPARE(rows(u"lstServicos"_s), (Rows{{u"0002"_s, u"S"_s, u"02"_s, u"TROCA"_s, u"50,00"_s, u"100,00"_s},
                                           {u"0000"_s, u"A"_s, u"01"_s, u"SOLDA"_s, u"50,00"_s, u"50,00"_s}}));
    QCOMPARE(rows(u"lstTercerizados"_s), (Rows{{u"0000"_s, u"A"_s, u"01"_s, u"GUINCHO"_s, u"200,00"_s, u"200,00"_s}}));
    QCOMPARE(rows(u"lstMaterial"_s), (Rows{{u"0001"_s, u"3,000"_s, u"OLEO"_s}}));
}

void TstFrmOSAlteraItens::theCompactLayoutKeepsWhatIsChargedInOneList()
{
    openOrder(compact);
    QStringList types;
    for (const QStringList &row : rows(u"Lista"_s)) {
        types << row.at(1);
    }
    QCOMPARE(types, (QStringList{u"P"_s, u"A"_s, u"S"_s, u"A"_s, u"A"_s}));
    QCOMPARE(rows(u"lstMaterial"_s).size(), 1U);
    QCOMPARE(totals(), (QStringList{u"421,75"_s, u"68,75"_s, u"100,00"_s, u"253,00"_s}));
}

void TstFrmOSAlteraItens::anItemIsWrittenAtOnce_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<int>("tab");
    QTest::addColumn<int>("code"); // 0: one-off
    QTest::addColumn<QStringList>("row");
    QTest::addColumn<QString>("total");
    const auto oneOff = [](const QString &letter) {
        return QStringList{u"2"_s, u"0"_s, u"2"_s, u"POLIMENTO"_s, u"10.5"_s, letter};
    };
    QTest::newRow("one-off part") << full << 0 << 0 << oneOff(u"A"_s) << u"442.75"_s;
    QTest::newRow("one-off service") << full << 1 << 0 << oneOff(u"Z"_s) << u"442.75"_s;
    QTest::newRow("outsourced") << full << 2 << 0 << oneOff(u"X"_s) << u"442.75"_s;
    QTest::newRow("one-off, compact") << compact << 0 << 0 << oneOff(u"A"_s) << u"442.75"_s;
    const QStringList part{u"2"_s, u"1"_s, u"2"_s, u"OLEO"_s, u"27.55"_s, u"P"_s};
    QTest::newRow("part") << full << 0 << 1 << part << u"476.85"_s;
    QTest::newRow("part, in front of the services") << full << 1 << 1 << part << u"476.85"_s;
    QTest::newRow("part, compact") << compact << 0 << 1 << part << u"476.85"_s;
    QTest::newRow("service") << full << 0 << 2 << QStringList{u"2"_s, u"2"_s, u"2"_s, u"TROCA"_s, u"50"_s, u"S"_s}
                             << u"521.75"_s;
    QTest::newRow("material") << full << 3 << 1 << QStringList{u"2"_s, u"1"_s, u"2"_s, u"OLEO"_s, u"0"_s, u"K"_s}
                              << u"421.75"_s;
}

void TstFrmOSAlteraItens::anItemIsWrittenAtOnce()
{
    QFETCH(QString, layout);
    QFETCH(int, tab);
    QFETCH(int, code);
    QFETCH(QStringList, row);
    QFETCH(QString, total);
    openOrder(layout);
    goTo(tab);
    code == 0 ? add(u"2"_s, u"POLIMENTO"_s, u"10,5"_s) : addRegistered(code, u"2"_s);
    leave();
    QCOMPARE(newItems(), (Rows{row}));
    QCOMPARE(stored(u"Valor"_s), total);
    QCOMPARE(items().size(), 7U);
}

void TstFrmOSAlteraItens::materialIsWrittenAtOnceInTheCompactLayout()
{
    openOrder(compact);
    goTo(3);
    addRegistered(1, u"2"_s);
    leave();
    QCOMPARE(newItems(), (Rows{{u"2"_s, u"1"_s, u"2"_s, u"OLEO"_s, u"0"_s, u"K"_s}}));
    QCOMPARE(stored(u"Valor"_s), u"421.75"_s);
}

void TstFrmOSAlteraItens::aCheckRefusesAnItem()
{
    openOrder();
    boxes_->title(u"Tarvelo"_s).exclamation(u"Quantidade Inválida"_s);
    type(form_, u"txtValor"_s, u"10"_s);
    click(form_, u"btnItemAdd"_s);
    boxes_->exclamation(u"Descrição da Peça/Serviço Inválido"_s);
    add(u"1"_s, QString(201, u'X'), u"10"_s);
    QCOMPARE(newItems(), Rows());
    add(u"1"_s, QString(200, u'X'), u"10"_s);
    QCOMPARE(newItems(), (Rows{{u"2"_s, u"0"_s, u"1"_s, QString(200, u'X'), u"10"_s, u"A"_s}}));
}

void TstFrmOSAlteraItens::anItemIsRemovedAtOnce_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("byKey");
    QTest::addColumn<QString>("total");
    QTest::newRow("part") << 0 << u"Lista"_s << false << u"353"_s;
    QTest::newRow("part, by key") << 0 << u"Lista"_s << true << u"353"_s;
    QTest::newRow("service") << 1 << u"lstServicos"_s << false << u"321.75"_s;
    QTest::newRow("service, by key") << 1 << u"lstServicos"_s << true << u"321.75"_s;
    QTest::newRow("outsourced") << 2 << u"lstTercerizados"_s << false << u"221.75"_s;
    QTest::newRow("outsourced, by key") << 2 << u"lstTercerizados"_s << true << u"221.75"_s;
}

void TstFrmOSAlteraItens::anItemIsRemovedAtOnce()
{
    QFETCH(int, tab);
    QFETCH(QString, name);
    QFETCH(bool, byKey);
    QFETCH(QString, total);
    openOrder();
    goTo(tab);
    list(name)->selectRow(0);
    const QString row = list(name)->item(0).key();
    byKey ? key(form_, name, Qt::Key_Delete) : click(form_, u"btnItemRemove"_s);
    leave();
    QCOMPARE(items().size(), 5U);
    QCOMPARE(program_->rows(u"SELECT Codigo FROM OSPecas WHERE Codigo = "_s + row), Rows());
    QCOMPARE(stored(u"Valor"_s), total);
    QCOMPARE(items(1).size(), 1U);
}

void TstFrmOSAlteraItens::materialIsRemovedWithoutATotal()
{
    openOrder();
    goTo(3);
    QVERIFY(!isOffered(u"btnItemRemove"_s));
    list(u"lstMaterial"_s)->selectRow(0);
    click(form_, u"btnItemRemove"_s);
    leave();
    QCOMPARE(items().size(), 5U);
    QCOMPARE(items().back().back(), u"X"_s);
    QCOMPARE(stored(u"Valor"_s), u"421.75"_s);
}

void TstFrmOSAlteraItens::anItemIsEditedAtOnce_data()
{
    QTest::addColumn<QString>("layout");
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("letter");
    QTest::addColumn<QString>("total");
    QTest::newRow("part") << full << 0 << u"Lista"_s << u"S"_s << u"378"_s;
    QTest::newRow("service") << full << 1 << u"lstServicos"_s << u"S"_s << u"346.75"_s;
    QTest::newRow("outsourced") << full << 2 << u"lstTercerizados"_s << u"X"_s << u"246.75"_s;
    QTest::newRow("compact") << compact << 0 << u"Lista"_s << u"S"_s << u"378"_s;
}

void TstFrmOSAlteraItens::anItemIsEditedAtOnce()
{
    QFETCH(QString, layout);
    QFETCH(int, tab);
    QFETCH(QString, name);
    QFETCH(QString, letter);
    QFETCH(QString, total);
    openOrder(layout);
    goTo(tab);
    list(name)->selectRow(0);
    const QString row = list(name)->item(0).key();
    answer({u"12"_s, u"s"_s, u"2"_s, u"d'agua"_s, u"12,5"_s});
    key(form_, name, Qt::Key_Insert);
    leave();
    QCOMPARE(program_->rows(
                 u"SELECT CodOS, CodPeca, Quantidade, Descricao, ValorUnit, PSA FROM OSPecas WHERE Codigo = "_s + row),
             (Rows{{u"2"_s, u"12"_s, u"2"_s, u"D'AGUA"_s, u"12.5"_s, letter}}));
    QCOMPARE(stored(u"Valor"_s), total);
    QCOMPARE(items().size(), 6U);
}

void TstFrmOSAlteraItens::theKeysDoNothingInTheMaterial()
{
    openOrder();
    goTo(3);
    list(u"lstMaterial"_s)->selectRow(0);
    key(form_, u"lstMaterial"_s, Qt::Key_Delete);
    key(form_, u"lstMaterial"_s, Qt::Key_Insert);
    QCOMPARE(items().size(), 6U);
}

void TstFrmOSAlteraItens::aClosedOrderTakesNoItem()
{
    program_->sql(u"UPDATE OrdemServico SET EmAberto = False WHERE Codigo = 2"_s);
    const Rows before = items();
    openOrder();
    list(u"Lista"_s)->selectRow(0);
    key(form_, u"Lista"_s, Qt::Key_Delete);
    key(form_, u"Lista"_s, Qt::Key_Insert);
    add(u"1"_s, u"CERA"_s, u"5"_s);
    click(form_, u"btnItemRemove"_s);
    goTo(3);
    list(u"lstMaterial"_s)->selectRow(0);
    click(form_, u"btnItemRemove"_s);
    QCOMPARE(items(), before);
    QCOMPARE(rows(u"Lista"_s).size(), 2U);
    QCOMPARE(stored(u"Valor"_s), u"421.75"_s);
}

void TstFrmOSAlteraItens::withoutAnOrderNothingIsWritten()
{
    openOrder();
    click(form_, u"btnCancelar"_s);
    goTo(3);
    list(u"lstMaterial"_s)->selectRow(0);
    click(form_, u"btnItemRemove"_s);
    addRegistered(1, u"2"_s);
    QCOMPARE(items().size(), 6U);
    QCOMPARE(newItems(), Rows());
}

void TstFrmOSAlteraItens::anOrderDeletedMeanwhileTakesNoItem()
{
    openOrder();
    program_->sql(u"DELETE * FROM OrdemServico WHERE Codigo = 2"_s);
    program_->sql(u"DELETE * FROM OSPecas WHERE CodOS = 2"_s);
    boxes_->title(u"Tarvelo"_s).exclamation(gone);
    add(u"1"_s, u"CERA"_s, u"5"_s);
    QCOMPARE(rows(u"Lista"_s).size(), 2U);
    list(u"Lista"_s)->selectRow(0);
    boxes_->exclamation(gone);
    click(form_, u"btnItemRemove"_s);
    list(u"Lista"_s)->selectRow(0);
    answer(QStringList(5, QString()));
    boxes_->exclamation(u"Código do Item Não Localizado."_s);
    key(form_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(items(), Rows());
    QCOMPARE(program_->rows(u"SELECT Codigo, Valor FROM OrdemServico"_s), (Rows{{u"1"_s, u"10"_s}}));
}

void TstFrmOSAlteraItens::anItemDeletedMeanwhileIsTold()
{
    openOrder();
    list(u"Lista"_s)->selectRow(0);
    program_->sql(u"DELETE * FROM OSPecas WHERE Codigo = "_s + list(u"Lista"_s)->item(0).key());
    answer({QString(), QString(), u"9"_s, QString(), QString()});
    boxes_->title(u"Tarvelo"_s).exclamation(u"Código do Item Não Localizado."_s);
    key(form_, u"Lista"_s, Qt::Key_Insert);
    QCOMPARE(items().size(), 5U);
    QCOMPARE(rows(u"Lista"_s).size(), 1U);
    QCOMPARE(stored(u"Valor"_s), u"421.75"_s);
}

// --- the calculator

void TstFrmOSAlteraItens::theCalculatorHoldsItsTextsAfterLoad()
{
    open(full, 0, altering);
    goTo(4);
    QCOMPARE(shown(u"lblValorMO"_s), u"18,60"_s);
    QCOMPARE(shown(u"txtHorasTrabalhadas"_s), u"1"_s);
    QCOMPARE(shown(u"txtPDespesa"_s), u"18"_s);
    QCOMPARE(shown(u"txtPTaxaLucro"_s), u"60"_s);
    QCOMPARE(shown(u"txtPISS"_s), u"00"_s);
    QCOMPARE(shown(u"txtPSimples"_s), u"00"_s);
    QCOMPARE(shown(u"txtCustoPecas"_s), QString());
    QVERIFY(at(u"btnCalcular"_s)->isVisible());
}

void TstFrmOSAlteraItens::theCalculatorPricesTheOrder()
{
    program_->sql(u"UPDATE Pecas SET ValorCusto = 20"_s);
    openOrder();
    goTo(4);
    type(form_, u"txtHorasTrabalhadas"_s, u"2,5"_s);
    type(form_, u"txtPISS"_s, u"5"_s);
    type(form_, u"txtPSimples"_s, u"8"_s);
    click(form_, u"btnCalcular"_s);
    QCOMPARE(shown(u"lblTotalMO"_s), u"46,50"_s);
    QCOMPARE(shown(u"txtCustoPecas"_s), u"50,00"_s);
    QCOMPARE(shown(u"lblDespesasAdmin"_s), u"17,37"_s);
    QCOMPARE(shown(u"lblLucro"_s), u"68,32"_s);
    QCOMPARE(shown(u"lblISS"_s), u"9,11"_s);
    QCOMPARE(shown(u"lblSimples"_s), u"14,58"_s);
    QCOMPARE(shown(u"lblCustoTotal"_s), u"205,88"_s);
}

void TstFrmOSAlteraItens::theCalculatorRefuses_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("message");
    QTest::newRow("expenses") << u"txtPDespesa"_s << u"Taxa de Despesas Administrativas Inválida"_s;
    QTest::newRow("profit") << u"txtPTaxaLucro"_s << u"Taxa de Lucro Inválida"_s;
    QTest::newRow("ISS") << u"txtPISS"_s << u"Taxa de ISS Inválida"_s;
    QTest::newRow("Simples") << u"txtPSimples"_s << u"Taxa de Simples Inválida"_s;
    QTest::newRow("hours") << u"txtHorasTrabalhadas"_s << u"Horas Trabalhadas Inválida"_s;
}

void TstFrmOSAlteraItens::theCalculatorRefuses()
{
    QFETCH(QString, field);
    QFETCH(QString, message);
    openOrder();
    goTo(4);
    for (const QString &unusable : {QString(), u"1,,5"_s}) {
        type(form_, field, unusable);
        boxes_->title(u"Tarvelo"_s).exclamation(message);
        click(form_, u"btnCalcular"_s);
        QTRY_VERIFY(at(field)->hasFocus());
        QCOMPARE(shown(u"lblTotalMO"_s), u"0,00"_s);
    }
}

void TstFrmOSAlteraItens::theCalculatorRefusesWhatItCannotTake_data()
{
    theCalculatorRefuses_data();
}

void TstFrmOSAlteraItens::theCalculatorRefusesWhatItCannotTake()
{
    QFETCH(QString, field);
    QFETCH(QString, message);
    openOrder();
    goTo(4);
    QStringList tooMuch{u"ABC"_s, u"1e60"_s};
    if (field != u"txtHorasTrabalhadas") {
        tooMuch << u"-5"_s;
    }
    for (const QString &text : tooMuch) {
        control<QLineEdit>(form_, field)->setText(text);
        boxes_->title(u"Tarvelo"_s).exclamation(message);
        click(form_, u"btnCalcular"_s);
        QTRY_VERIFY(at(field)->hasFocus());
        QCOMPARE(shown(u"lblTotalMO"_s), u"0,00"_s);
    }
}

void TstFrmOSAlteraItens::theCalculatorWritesNothing()
{
    openOrder();
    const Rows before = items();
    goTo(4);
    click(form_, u"btnCalcular"_s);
    QCOMPARE(items(), before);
    QCOMPARE(stored(u"Valor"_s), u"421.75"_s);
    QCOMPARE(program_->rows(u"SELECT ValorCusto FROM Pecas WHERE ValorCusto <> 0"_s), Rows());
}

void TstFrmOSAlteraItens::itemsHaveNoPlaceInTheCalculator()
{
    openOrder();
    list(u"Lista"_s)->selectRow(0);
    goTo(4);
    QVERIFY(!isOffered(u"btnItemAdd"_s));
    QVERIFY(!isOffered(u"btnItemRemove"_s));
    goTo(0);
    QVERIFY(isOffered(u"btnItemAdd"_s));
    QVERIFY(isOffered(u"btnItemRemove"_s));
}

TARVELO_TEST_MAIN(TstFrmOSAlteraItens)
#include "tst_frmOSAltera_itens.moc"
