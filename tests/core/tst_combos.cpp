#include "core/combos.h"
#include "core/lista.h"

#include "core/modulo.h"
#include "platform/dao/database.h"
#include "platform/ui/form.h"
#include "platform/ui/listview.h"
#include "support/boxes.h"
#include "support/errors.h"
#include "support/program.h"

#include <QComboBox>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using core::ListaCombo;
using core::ModoCombo;
using support::control;
using support::errorOf;
using support::key;
using support::text;
using support::type;

namespace
{

class frmProva : public ui::Form
{
public:
    frmProva() : ui::Form(u"frmProva"_s)
    {
        auto *coluna = new QVBoxLayout(this);
        outro_->setObjectName(u"txtOutro"_s);
        combo_->setObjectName(u"cboMarca"_s);
        combo_->setEditable(true);
        lista_->setObjectName(u"Lista"_s);
        lista_->addColumn(u"Código"_s, 1000);
        lista_->addColumn(u"Nome"_s, 3000);
        coluna->addWidget(outro_);
        coluna->addWidget(combo_);
        coluna->addWidget(lista_);
        onChange(combo_, &frmProva::cboMarca_Change);
    }

    void Form_Load() override { core::AtualizaCombo(combo_, ListaCombo::MarcaModelo, ModoCombo::Carrega); }

private:
    void cboMarca_Change() { core::AutoCompletaCombo(combo_); }

    QLineEdit *outro_ = new QLineEdit(this);
    QComboBox *combo_ = new QComboBox(this);
    ui::ListView *lista_ = new ui::ListView(this);
};

QStringList entradas(const QComboBox *combo)
{
    QStringList textos;
    for (int i = 0; i < combo->count(); ++i) {
        textos << combo->itemText(i);
    }
    return textos;
}

QList<int> selecionadas(const ui::ListView *lista)
{
    QList<int> linhas;
    for (const QModelIndex &indice : lista->selectionModel()->selectedRows()) {
        linhas << indice.row();
    }
    return linhas;
}

} // namespace

class TestCombos : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void loadsTheEntriesOfItsListInOrder();
    void doesNotTakeTheFocusAtLoad();
    void showsANullEntryAsEmpty();
    void emptiesTheTextAtALoad();
    void addsTheTextAndKeepsItSelected();
    void doesNotAddAnEmptyText();
    void addsATextOf200Characters();
    void refusesATextOf201Characters();
    void doesNotAddWhatIsThereAndKeepsTheSelection();
    void addsTheSameTextToAnotherList();
    void deletesTheEntryAndEmptiesTheText();
    void emptiesAComboWhoseLastEntryGoes();
    void failsOnAnApostrophe_data();
    void failsOnAnApostrophe();

    void completesByTheFirstEntryThatBegins();
    void completesAtEveryLetter();
    void replacesTheCompletedPartAsTheUserTypesOn();
    void completesWithoutRegardToCase();
    void leavesATextWithoutAMatch();
    void neverCompletesWithTheSettingOff();
    void letsTheCompletedPartBeDeleted();
    void completesALetterTypedOverATextThatBeginsWithIt();
    void takesNoMoreThanTheWindowsColumn();
    void doesNothingOnAnEmptyText();

    void findsARowByTheBeginningOfACell_data();
    void findsARowByTheBeginningOfACell();
    void stopsAtTheFirstMatchAndShowsIt();
    void takesTheSelectionOffEveryMatch();
    void findsAnEmptyTextAtOnce();

private:
    void abre();
    void enche(const QStringList &textos, int lista = 1);
    void encheLista();
    std::vector<QStringList> tabela() const;
    void atualiza(ModoCombo modo, ListaCombo lista = ListaCombo::MarcaModelo);

    std::unique_ptr<support::Program> programa_;
    ui::Form *janela_ = nullptr;
    QComboBox *combo_ = nullptr;
    ui::ListView *lista_ = nullptr;
};

void TestCombos::initTestCase()
{
    ui::Forms::instance().add(u"frmProva"_s, [] { return new frmProva; });
}

void TestCombos::init()
{
    programa_ = std::make_unique<support::Program>();
}

void TestCombos::cleanup()
{
    programa_.reset();
}

void TestCombos::abre()
{
    janela_ = support::show(u"frmProva"_s);
    combo_ = control<QComboBox>(janela_, u"cboMarca"_s);
    lista_ = control<ui::ListView>(janela_, u"Lista"_s);
}

void TestCombos::enche(const QStringList &textos, int lista)
{
    for (const QString &texto : textos) {
        programa_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (%1, '%2')"_s.arg(lista).arg(texto));
    }
}

std::vector<QStringList> TestCombos::tabela() const
{
    return programa_->rows(u"SELECT Codigo, Texto FROM Combos ORDER BY Codigo, Texto"_s);
}

void TestCombos::atualiza(ModoCombo modo, ListaCombo lista)
{
    core::AtualizaCombo(combo_, lista, modo);
}

// --- AtualizaCombo

void TestCombos::loadsTheEntriesOfItsListInOrder()
{
    enche({u"UNO"_s, u"corsa"_s, u"GOL"_s});
    enche({u"BRADESCO"_s}, 2);
    abre();
    QCOMPARE(entradas(combo_), (QStringList{u"corsa"_s, u"GOL"_s, u"UNO"_s}));
    QCOMPARE(combo_->currentText(), QString());
}

void TestCombos::doesNotTakeTheFocusAtLoad()
{
    enche({u"GOL"_s});
    abre();
    QCOMPARE(janela_->focusWidget(), control<QLineEdit>(janela_, u"txtOutro"_s));
    atualiza(ModoCombo::Carrega);
    QVERIFY(combo_->lineEdit()->hasFocus());
}

void TestCombos::showsANullEntryAsEmpty()
{
    programa_->sql(u"INSERT INTO Combos (Codigo) VALUES (1)"_s);
    enche({u"GOL"_s});
    abre();
    QCOMPARE(entradas(combo_), (QStringList{QString(), u"GOL"_s}));
}

void TestCombos::emptiesTheTextAtALoad()
{
    enche({u"GOL"_s});
    abre();
    combo_->setEditText(u"FUSCA"_s);
    atualiza(ModoCombo::Carrega);
    QCOMPARE(combo_->currentText(), QString());
}

void TestCombos::addsTheTextAndKeepsItSelected()
{
    abre();
    type(janela_, u"cboMarca"_s, u"GOL 1.0"_s, false);
    atualiza(ModoCombo::Acrescenta);
    QCOMPARE(tabela(), (std::vector<QStringList>{{u"1"_s, u"GOL 1.0"_s}}));
    QCOMPARE(entradas(combo_), QStringList{u"GOL 1.0"_s});
    QCOMPARE(combo_->currentText(), u"GOL 1.0"_s);
    QCOMPARE(combo_->lineEdit()->selectedText(), u"GOL 1.0"_s);
}

void TestCombos::doesNotAddAnEmptyText()
{
    enche({u"GOL"_s});
    abre();
    atualiza(ModoCombo::Acrescenta);
    QCOMPARE(tabela().size(), 1U);
}

void TestCombos::addsATextOf200Characters()
{
    abre();
    combo_->setEditText(QString(200, u'A'));
    atualiza(ModoCombo::Acrescenta);
    QCOMPARE(tabela(), (std::vector<QStringList>{{u"1"_s, QString(200, u'A')}}));
}

void TestCombos::refusesATextOf201Characters()
{
    abre();
    combo_->setEditText(QString(201, u'A'));
    support::Boxes caixas;
    caixas.title(u"Tarvelo"_s).exclamation(u"O Campo ultrapassou o limite máximo de caracteres (200)"_s);
    atualiza(ModoCombo::Acrescenta);
    caixas.finish();
    QVERIFY(tabela().empty());
    QCOMPARE(combo_->lineEdit()->selectedText(), QString(201, u'A'));
}

void TestCombos::doesNotAddWhatIsThereAndKeepsTheSelection()
{
    enche({u"GOL"_s, u"UNO"_s});
    abre();
    combo_->setEditText(u"gol"_s);
    atualiza(ModoCombo::Acrescenta);
    QCOMPARE(tabela().size(), 2U);
    QCOMPARE(combo_->lineEdit()->selectedText().toUpper(), u"GOL"_s);
    QCOMPARE(entradas(combo_), (QStringList{u"GOL"_s, u"UNO"_s}));
}

void TestCombos::addsTheSameTextToAnotherList()
{
    enche({u"GOL"_s});
    abre();
    combo_->setEditText(u"GOL"_s);
    atualiza(ModoCombo::Acrescenta, ListaCombo::DescricaoItens);
    QCOMPARE(tabela(), (std::vector<QStringList>{{u"1"_s, u"GOL"_s}, {u"3"_s, u"GOL"_s}}));
}

void TestCombos::deletesTheEntryAndEmptiesTheText()
{
    enche({u"GOL"_s, u"UNO"_s});
    enche({u"GOL"_s}, 2);
    abre();
    combo_->setEditText(u"GOL"_s);
    atualiza(ModoCombo::Exclui);
    QCOMPARE(tabela(), (std::vector<QStringList>{{u"1"_s, u"UNO"_s}, {u"2"_s, u"GOL"_s}}));
    QCOMPARE(entradas(combo_), QStringList{u"UNO"_s});
    QCOMPARE(combo_->currentText(), QString());
}

void TestCombos::emptiesAComboWhoseLastEntryGoes()
{
    enche({u"GOL"_s});
    abre();
    combo_->setEditText(u"GOL"_s);
    atualiza(ModoCombo::Exclui);
    QCOMPARE(combo_->count(), 0);
    QCOMPARE(combo_->currentText(), QString());
}

void TestCombos::failsOnAnApostrophe_data()
{
    QTest::addColumn<int>("modo");
    QTest::newRow("add") << static_cast<int>(ModoCombo::Acrescenta);
    QTest::newRow("delete") << static_cast<int>(ModoCombo::Exclui);
}

void TestCombos::failsOnAnApostrophe()
{
    enche({u"GOL"_s});
    abre();
    combo_->setEditText(u"CAIXA D'ÁGUA"_s);
    QFETCH(const int, modo);
    QCOMPARE(errorOf([&] { atualiza(static_cast<ModoCombo>(modo)); }), 3075);
    QCOMPARE(tabela().size(), 1U);
}

// --- AutoCompletaCombo

void TestCombos::completesByTheFirstEntryThatBegins()
{
    enche({u"GOL 1.6"_s, u"GOL 1.0"_s, u"UNO"_s});
    abre();
    type(janela_, u"cboMarca"_s, u"g"_s, false);
    QCOMPARE(combo_->currentText(), u"GOL 1.0"_s);
    QCOMPARE(combo_->lineEdit()->selectedText(), u"OL 1.0"_s);
}

void TestCombos::completesAtEveryLetter()
{
    enche({u"GOL 1.0"_s});
    abre();
    type(janela_, u"cboMarca"_s, u"go"_s, false);
    QCOMPARE(combo_->currentText(), u"GOL 1.0"_s);
    QCOMPARE(combo_->lineEdit()->selectedText(), u"L 1.0"_s);
}

void TestCombos::replacesTheCompletedPartAsTheUserTypesOn()
{
    enche({u"GOL 1.0"_s, u"GOL 1.6"_s});
    abre();
    type(janela_, u"cboMarca"_s, u"gol 1.6"_s, false);
    QCOMPARE(combo_->currentText(), u"GOL 1.6"_s);
    type(janela_, u"cboMarca"_s, u"golf"_s, false);
    QCOMPARE(combo_->currentText(), u"GOLF"_s);
}

void TestCombos::completesWithoutRegardToCase()
{
    enche({u"Água"_s});
    abre();
    type(janela_, u"cboMarca"_s, u"á"_s, false);
    QCOMPARE(combo_->currentText(), u"Água"_s);
    QCOMPARE(combo_->lineEdit()->selectedText(), u"gua"_s);
}

void TestCombos::leavesATextWithoutAMatch()
{
    enche({u"GOL"_s});
    abre();
    type(janela_, u"cboMarca"_s, u"fusca"_s, false);
    QCOMPARE(combo_->currentText(), u"FUSCA"_s);
    QCOMPARE(combo_->lineEdit()->selectedText(), QString());
}

void TestCombos::neverCompletesWithTheSettingOff()
{
    enche({u"GOL 1.0"_s});
    abre();
    core::AutoCompletar = false;
    type(janela_, u"cboMarca"_s, u"gol"_s);
    QCOMPARE(combo_->currentText(), u"GOL"_s);
}

void TestCombos::letsTheCompletedPartBeDeleted()
{
    enche({u"GOL 1.0"_s});
    abre();
    type(janela_, u"cboMarca"_s, u"gol"_s, false);
    QCOMPARE(combo_->currentText(), u"GOL 1.0"_s);
    key(janela_, u"cboMarca"_s, Qt::Key_Backspace);
    QCOMPARE(combo_->currentText(), u"GOL"_s);
    key(janela_, u"cboMarca"_s, Qt::Key_Backspace);
    QCOMPARE(combo_->currentText(), u"GO"_s);
}

void TestCombos::completesALetterTypedOverATextThatBeginsWithIt()
{
    enche({u"GOL 1.0"_s});
    abre();
    type(janela_, u"cboMarca"_s, u"gol 1.0"_s, false);
    type(janela_, u"cboMarca"_s, u"g"_s, false);
    QCOMPARE(combo_->currentText(), u"GOL 1.0"_s);
    QCOMPARE(combo_->lineEdit()->selectedText(), u"OL 1.0"_s);
    combo_->lineEdit()->setSelection(1, 6);
    key(janela_, u"cboMarca"_s, Qt::Key_Delete);
    QCOMPARE(combo_->currentText(), u"G"_s);
}

void TestCombos::takesNoMoreThanTheWindowsColumn()
{
    enche({QString(230, u'G')});
    abre();
    QCOMPARE(combo_->lineEdit()->maxLength(), 250);
    combo_->lineEdit()->setMaxLength(200);
    atualiza(ModoCombo::Carrega);
    QCOMPARE(combo_->lineEdit()->maxLength(), 200);
    combo_->setCurrentIndex(0);
    QCOMPARE(combo_->currentText(), QString(200, u'G'));
}

void TestCombos::doesNothingOnAnEmptyText()
{
    enche({u"GOL"_s});
    abre();
    core::AutoCompletaCombo(combo_);
    QCOMPARE(combo_->currentText(), QString());
}

// --- LocalizaLista

void TestCombos::encheLista()
{
    abre();
    lista_->addItem(u"0001"_s, {u"ANA"_s});
    lista_->addItem(u"0002"_s, {u"Mário"_s});
    lista_->addItem(u"0003"_s, {u"ANABELA"_s});
}

void TestCombos::findsARowByTheBeginningOfACell_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<int>("coluna");
    QTest::addColumn<bool>("achou");
    QTest::addColumn<int>("linha");
    QTest::newRow("the row's own text") << u"0002"_s << 1 << true << 1;
    QTest::newRow("a column") << u"ANAB"_s << 2 << true << 2;
    QTest::newRow("without regard to case") << u"MÁ"_s << 2 << true << 1;
    QTest::newRow("the first of several") << u"an"_s << 2 << true << 0;
    QTest::newRow("not inside the cell") << u"BELA"_s << 2 << false << -1;
    QTest::newRow("longer than the cell") << u"ANABELAS"_s << 2 << false << -1;
}

void TestCombos::findsARowByTheBeginningOfACell()
{
    encheLista();
    lista_->clearSelection();
    QFETCH(const QString, texto);
    QFETCH(const int, coluna);
    QFETCH(const bool, achou);
    QFETCH(const int, linha);
    QCOMPARE(core::LocalizaLista(lista_, texto, coluna, true, true), achou);
    QCOMPARE(selecionadas(lista_), linha < 0 ? QList<int>() : QList<int>{linha});
}

void TestCombos::stopsAtTheFirstMatchAndShowsIt()
{
    encheLista();
    for (int i = 4; i < 500; ++i) {
        lista_->addItem(QString::number(i), {u"OUTRO"_s});
    }
    lista_->addItem(u"9999"_s, {u"ZULEICA"_s});
    QVERIFY(core::LocalizaLista(lista_, u"ZU"_s, 2, true, true));
    const int linha = lista_->selectedRow();
    QCOMPARE(lista_->item(linha).text(), u"9999"_s);
    QVERIFY(lista_->viewport()->rect().intersects(lista_->visualRect(lista_->model()->index(linha, 0))));
}

void TestCombos::takesTheSelectionOffEveryMatch()
{
    encheLista();
    lista_->selectRow(2);
    QVERIFY(core::LocalizaLista(lista_, u"ANA"_s, 2, false, false));
    QVERIFY(selecionadas(lista_).isEmpty());
}

void TestCombos::findsAnEmptyTextAtOnce()
{
    encheLista();
    lista_->selectRow(1);
    QVERIFY(core::LocalizaLista(lista_, QString(), 2, true, true));
    QCOMPARE(selecionadas(lista_), QList<int>{1});
}

TARVELO_TEST_MAIN(TestCombos)
#include "tst_combos.moc"
