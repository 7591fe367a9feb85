#include "tests/registers/cadapecas.h"

using namespace Qt::StringLiterals;
using cadapecas::Rows;
using support::control;

/// The register of parts and services as it opens and lists.
class TstFrmCadaPecas : public cadapecas::Case
{
    Q_OBJECT

private slots:
    void initTestCase() { registerWindows(); }
    void init() { begin(); }
    void cleanup() { end(); }

    void opensByItsMode_data();
    void opensByItsMode();
    void startsAsAPartUnderStockControl();
    void namesItsFields_data();
    void namesItsFields();
    void mnemonicsLeadToTheirFields_data();
    void mnemonicsLeadToTheirFields();
    void buttonsTellWhatTheyDo_data();
    void buttonsTellWhatTheyDo();
    void taxFieldsNeedTheirSetting_data();
    void taxFieldsNeedTheirSetting();
    void offersItsUnitsAndSearches();
    void fitsTheMainWindow();
    void tabGoesFieldByField();
    void startsEmptyUnlessTheSettingFillsIt_data();
    void startsEmptyUnlessTheSettingFillsIt();
    void keepsTheListOfMakes();
    void completesAMake();

    void theListHasItsColumns();
    void theListShowsEveryPart();
    void formatsTheMinimumByItsUnit_data();
    void formatsTheMinimumByItsUnit();
    void partsStandBeforeServices();
    void theSameNameIsOrderedByItsMake();
    void listingAllLeavesTheFields();
    void aColumnHeaderSorts();
};

// --- opening

void TstFrmCadaPecas::opensByItsMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("tail");
    QTest::addColumn<QString>("focus");
    const QString plain = u"Cadastro de Peças/Serviços"_s;
    const QString add = u"Incluir Peça/Serviço"_s;
    QTest::newRow("menu") << 0 << plain << QString();
    QTest::newRow("left over, for an order") << 2 << plain << QString();
    QTest::newRow("find for an order") << 5 << u"Consulta Código de Peças"_s << u"txtTexto"_s;
    QTest::newRow("add for an order") << 6 << add << u"txtNome"_s;
    QTest::newRow("find for a receipt") << 18 << plain << QString();
    QTest::newRow("add for a receipt") << 19 << add << u"txtNome"_s;
    QTest::newRow("add for the stock") << 22 << plain << QString();
    QTest::newRow("find for the stock") << 23 << plain << QString();
}

void TstFrmCadaPecas::opensByItsMode()
{
    QFETCH(int, mode);
    QFETCH(QString, tail);
    QFETCH(QString, focus);
    open(mode);
    QCOMPARE(form_->windowTitle(), u"Tarvelo - [%1]"_s.arg(tail));
    if (!focus.isEmpty()) {
        QCOMPARE(cadastro::focusOf(form_), focus);
    }
    QCOMPARE(core::ModoChamada, qint16(mode));
}

void TstFrmCadaPecas::startsAsAPartUnderStockControl()
{
    open();
    QVERIFY(chosen(u"optPeca"_s) && !chosen(u"optServico"_s));
    QVERIFY(chosen(u"optSim"_s) && !chosen(u"optNao"_s));
    QVERIFY(at(u"txtEstoque"_s)->isEnabled() && at(u"txtEstoqueAtual"_s)->isEnabled());
    QCOMPARE(text(u"cboUnidade"_s), u"UNIDADE"_s);
    QCOMPARE(text(u"cboPesquisa"_s), u"Nome"_s);
    compareFields(
        cadapecas::emptied({u"lblCodigo"_s, u"txtNome"_s, u"cboMarca"_s, u"txtCusto"_s, u"txtVenda"_s, u"txtEstoque"_s,
                            u"txtEstoqueAtual"_s, u"txtCodExterno"_s, u"txtICMS"_s, u"txtClass"_s, u"txtTexto"_s}));
}

void TstFrmCadaPecas::namesItsFields_data()
{
    QTest::addColumn<QString>("caption");
    for (const char *caption : {"Código:", "Descrição Peça/Serviço:", "Aplicação Marca/Modelo:", "Unidade Medida:",
                                "Valor Custo:", "Valor Venda:", "Estoque Mínimo:", "Controlar Estoque:",
                                "Estoque Atual:", "Código Externo:", "ICMS:", "Class. Fiscal:", "Pesquisar em:"}) {
        QTest::newRow(caption) << QString::fromUtf8(caption);
    }
}

void TstFrmCadaPecas::namesItsFields()
{
    QFETCH(QString, caption);
    openWithTaxFields();
    const auto *label = this->caption(caption);
    QVERIFY(label->isVisible());
    QVERIFY(label->objectName().startsWith(u"Rotulos_"));
}

void TstFrmCadaPecas::mnemonicsLeadToTheirFields_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("field");
    QTest::newRow("unit") << u"Unidade &Medida:"_s << u"cboUnidade"_s;
    QTest::newRow("cost") << u"Valor C&usto:"_s << u"txtCusto"_s;
    QTest::newRow("price") << u"Valor &Venda:"_s << u"txtVenda"_s;
    QTest::newRow("minimum") << u"&Estoque Mínimo:"_s << u"txtEstoque"_s;
    QTest::newRow("stock") << u"&Estoque Atual:"_s << u"txtEstoqueAtual"_s;
}

void TstFrmCadaPecas::mnemonicsLeadToTheirFields()
{
    QFETCH(QString, caption);
    QFETCH(QString, field);
    open();
    const auto *label = this->caption(QString(caption).remove(u'&'));
    QCOMPARE(label->text(), caption);
    QCOMPARE(label->buddy(), at(field));
}

void TstFrmCadaPecas::buttonsTellWhatTheyDo_data()
{
    cadastro::addButtons(u"Clique aqui para Localizar um Registro na Lista Acima Somente pelo campo NOME"_s);
}

void TstFrmCadaPecas::buttonsTellWhatTheyDo()
{
    open();
    cadastro::compareButton(form_);
}

void TstFrmCadaPecas::taxFieldsNeedTheirSetting_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<bool>("visible");
    QTest::newRow("its setting") << u"2-2"_s << true;
    QTest::newRow("none") << QString() << false;
    QTest::newRow("another") << u"2-1"_s << false;
    QTest::newRow("more") << u"2-22"_s << false;
}

void TstFrmCadaPecas::taxFieldsNeedTheirSetting()
{
    QFETCH(QString, setting);
    QFETCH(bool, visible);
    program_->config(u"Personalizacao"_s, setting);
    open();
    QCOMPARE(at(u"txtICMS"_s)->isVisible(), visible);
    QCOMPARE(at(u"txtClass"_s)->isVisible(), visible);
    QCOMPARE(caption(u"ICMS:"_s)->isVisible(), visible);
    QCOMPARE(caption(u"Class. Fiscal:"_s)->isVisible(), visible);
}

void TstFrmCadaPecas::offersItsUnitsAndSearches()
{
    open();
    QCOMPARE(cadastro::entriesOf(form_, u"cboUnidade"_s),
             (QStringList{u"UNIDADE"_s, u"QUILOS"_s, u"LITROS"_s, u"GALÃO"_s, u"PACOTE"_s}));
    QCOMPARE(cadastro::entriesOf(form_, u"cboPesquisa"_s), (QStringList{u"Código"_s, u"Nome"_s, u"Cód. Externo"_s}));
}

void TstFrmCadaPecas::fitsTheMainWindow()
{
    openWithTaxFields();
    const QSize least = form_->minimumSizeHint();
    QVERIFY2(least.width() <= 1000 && least.height() <= 600,
             qPrintable(u"%1x%2"_s.arg(least.width()).arg(least.height())));
}

/// Of two options Tab reaches the chosen one.
void TstFrmCadaPecas::tabGoesFieldByField()
{
    const QStringList order{
        u"txtNome"_s,    u"cboMarca"_s,     u"optPeca"_s,         u"cboUnidade"_s,    u"txtCusto"_s,  u"txtVenda"_s,
        u"optSim"_s,     u"txtEstoque"_s,   u"txtEstoqueAtual"_s, u"txtCodExterno"_s, u"txtICMS"_s,   u"txtClass"_s,
        u"btnIncluir"_s, u"btnAlterar"_s,   u"btnExcluir"_s,      u"btnCancelar"_s,   u"btnVoltar"_s, u"cboPesquisa"_s,
        u"txtTexto"_s,   u"btnPesquisar"_s, u"btnLocalizar"_s,    u"btnTodos"_s,      u"Lista"_s};
    openWithTaxFields();
    QCOMPARE(cadastro::tabOrder(form_, order.first(), order.size()), order);
}

void TstFrmCadaPecas::startsEmptyUnlessTheSettingFillsIt_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QStringList>("listed");
    QTest::newRow("on") << u"S"_s << QStringList{u"0003"_s, u"0001"_s, u"0002"_s};
    QTest::newRow("off") << u"N"_s << QStringList{};
}

void TstFrmCadaPecas::startsEmptyUnlessTheSettingFillsIt()
{
    QFETCH(QString, setting);
    threeParts();
    program_->config(u"PreencheCadastroAutomatico"_s, setting);
    open();
    QTEST(codes(), "listed");
}

void TstFrmCadaPecas::keepsTheListOfMakes()
{
    open();
    type(u"cboMarca"_s, u"gol 1.6"_s);
    click(u"btnMarcaAdd"_s);
    const QString combos = u"SELECT Codigo, Texto FROM Combos"_s;
    QCOMPARE(program_->rows(combos), (Rows{{u"1"_s, u"GOL 1.6"_s}}));
    QCOMPARE(text(u"cboMarca"_s), u"GOL 1.6"_s);

    click(u"btnMarcaRemove"_s);
    QCOMPARE(program_->rows(combos), Rows());
    QCOMPARE(text(u"cboMarca"_s), QString());
}

void TstFrmCadaPecas::completesAMake()
{
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (1, 'GOL 1.6')"_s);
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (2, 'GRANDE BANCO')"_s);
    core::AutoCompletar = true;
    open();
    QCOMPARE(control<QComboBox>(form_, u"cboMarca"_s)->count(), 1);
    QCOMPARE(text(u"cboMarca"_s), QString());
    support::type(form_, u"cboMarca"_s, u"g"_s, false);
    QTRY_COMPARE(text(u"cboMarca"_s), u"GOL 1.6"_s);
}

// --- the list

void TstFrmCadaPecas::theListHasItsColumns()
{
    open();
    cadastro::compareColumns(form_, {{u"Código"_s, 900},
                                     {u"Descrição Peça/Serviço"_s, 3400},
                                     {u"Aplicação Marca/Modelo"_s, 3400},
                                     {u"Peça/Serviço"_s, 400},
                                     {u"U.M."_s, 1000},
                                     {u"Valor Custo"_s, 1500},
                                     {u"Valor de Venda"_s, 1500},
                                     {u"Estoque Mínimo"_s, 1500},
                                     {u"Controlar Estoque"_s, 1500}});
}

void TstFrmCadaPecas::theListShowsEveryPart()
{
    threeParts();
    open();
    click(u"btnTodos"_s);
    const Rows expected{
        {u"0003"_s, u"FILTRO DE AR"_s, u"GOL"_s, u"P"_s, u"UNIDADE"_s, u"1.000,00"_s, u"2.345,60"_s, u"02"_s, u"Sim"_s},
        {u"0001"_s, u"OLEO 20W50"_s, u"TODOS"_s, u"P"_s, u"LITROS"_s, u"20,00"_s, u"30,50"_s, u"2,500"_s, u"Sim"_s},
        {u"0002"_s, u"ALINHAMENTO"_s, u"CARROS"_s, u"S"_s, u"UNIDADE"_s, u"0,00"_s, u"80,00"_s, u" "_s, u"Não"_s},
    };
    QCOMPARE(cadastro::rowsOf(form_), expected);
}

void TstFrmCadaPecas::formatsTheMinimumByItsUnit_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QString>("minimum");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("listed");
    QTest::newRow("piece") << 0 << u"7"_s << u"UNIDADE"_s << u"07"_s;
    QTest::newRow("kilogram") << 1 << u"7"_s << u"QUILOS"_s << u"7,000"_s;
    QTest::newRow("litre") << 2 << u"1234.5"_s << u"LITROS"_s << u"1.234,500"_s;
    QTest::newRow("gallon") << 3 << u"7"_s << u"GALÃO"_s << u"07"_s;
    QTest::newRow("packet") << 4 << u"123"_s << u"PACOTE"_s << u"123"_s;
    QTest::newRow("part of a piece") << 0 << u"2.5"_s << u"UNIDADE"_s << u"2,500"_s;
    QTest::newRow("zero") << 0 << u"0"_s << u"UNIDADE"_s << u"00"_s;
    QTest::newRow("none") << 0 << u"Null"_s << u"UNIDADE"_s << u" "_s;
}

void TstFrmCadaPecas::formatsTheMinimumByItsUnit()
{
    QFETCH(int, unit);
    QFETCH(QString, minimum);
    QFETCH(QString, name);
    part(u"OLEO"_s, u"P"_s, u"UM = %1, EstoqueMinimo = %2"_s.arg(unit).arg(minimum));
    open();
    click(u"btnTodos"_s);
    QCOMPARE(cadastro::columnOf(form_, 4), QStringList{name});
    const QStringList minima = cadastro::columnOf(form_, 7);
    QCOMPARE(minima.size(), 1);
    QTEST(minima.first(), "listed");
}

void TstFrmCadaPecas::partsStandBeforeServices()
{
    part(u"ALINHAMENTO"_s, u"S"_s);
    part(u"ZINCAGEM"_s, u"P"_s);
    part(u"BALANCEAMENTO"_s, u"S"_s);
    part(u"AMORTECEDOR"_s, u"P"_s);
    open();
    click(u"btnTodos"_s);
    const QStringList names{u"AMORTECEDOR"_s, u"ZINCAGEM"_s, u"ALINHAMENTO"_s, u"BALANCEAMENTO"_s};
    QCOMPARE(cadastro::columnOf(form_, 1), names);

    search(u"A"_s);
    QCOMPARE(cadastro::columnOf(form_, 1), names);
}

void TstFrmCadaPecas::theSameNameIsOrderedByItsMake()
{
    part(u"FILTRO"_s, u"P"_s, u"MarcaModelo = 'UNO'"_s);
    part(u"FILTRO"_s, u"P"_s, u"MarcaModelo = 'GOL'"_s);
    open();
    click(u"btnTodos"_s);
    QCOMPARE(cadastro::columnOf(form_, 2), (QStringList{u"GOL"_s, u"UNO"_s}));
}

void TstFrmCadaPecas::listingAllLeavesTheFields()
{
    threeParts();
    open();
    type(u"txtNome"_s, u"VELA"_s);
    click(u"btnTodos"_s);
    click(u"btnTodos"_s);
    QCOMPARE(codes().size(), 3);
    QCOMPARE(text(u"txtNome"_s), u"VELA"_s);
    QCOMPARE(text(u"lblCodigo"_s), QString());
}

void TstFrmCadaPecas::aColumnHeaderSorts()
{
    threeParts();
    open();
    click(u"btnTodos"_s);
    cadastro::clickHeader(form_, 1);
    QCOMPARE(codes(), (QStringList{u"0002"_s, u"0003"_s, u"0001"_s}));
    cadastro::clickHeader(form_, 1);
    QCOMPARE(codes(), (QStringList{u"0001"_s, u"0003"_s, u"0002"_s}));
    cadastro::clickHeader(form_, 0);
    QCOMPARE(codes(), (QStringList{u"0001"_s, u"0002"_s, u"0003"_s}));
}

TARVELO_TEST_MAIN(TstFrmCadaPecas)
#include "tst_frmCadaPecas.moc"
