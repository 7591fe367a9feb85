#include "tests/ui/prova.h"

#include <QCheckBox>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScrollArea>
#include <QTabWidget>

using namespace Qt::StringLiterals;
using namespace prova;

/// Adds a control of some kind to the window.
using Make = std::function<QWidget *(frmProva &)>;
Q_DECLARE_METATYPE(Make)

class tst_form : public Fixture
{
    Q_OBJECT

private slots:
    // Keys.
    void enterGoesOnAsTab();
    void tabGoesRoundInsideItsChildWindow();
    void shiftEnterGoesBack();
    void enterPressesTheFocusedButton();
    void enterOnAListIsADoubleClickOnce();
    void enterOnAListWithoutAUseForItGoesOn();
    void enterShowsTheFocusAsTabDoes_data();
    void enterShowsTheFocusAsTabDoes();
    void arrivingAtAListMarksItsFirstRow();
    void aClickOnAScrolledListTakesTheRowUnderIt();
    void movesInAListChooseFromTheFirstRow_data();
    void movesInAListChooseFromTheFirstRow();
    void aListThatIsFilledUnderTheFocusMarksItsFirstRow();
    void enterInALongTextGoesOn();
    void enterInAnOpenComboChoosesOnly();
    void enterLeavesADatePickerWhole();
    void typedLettersBecomeCapitals_data();
    void typedLettersBecomeCapitals();
    void inputMethodTextBecomesCapitals();
    void pastedTextStays();
    void broughtLettersStayAsTheyAre_data() { waysToBringAText(false); }
    void broughtLettersStayAsTheyAre();
    void pastedDigitsAreAllThatADigitsBoxTakes_data() { waysToBringAText(); }
    void pastedDigitsAreAllThatADigitsBoxTakes();
    void pastedLineBreaksBecomeBlanks_data() { waysToBringAText(); }
    void pastedLineBreaksBecomeBlanks();
    void pastedTextFindsRoomForWhatTheBoxTakes_data() { waysToBringAText(); }
    void pastedTextFindsRoomForWhatTheBoxTakes();
    void aReadOnlyBoxTakesNothing_data() { waysToBringAText(false); }
    void aReadOnlyBoxTakesNothing();
    void aPasteCanBeTidiedAsAWhole();
    void tellsWhatTheUserPutsIn();
    void shortcutsAreNotTyped();
    void comboOffersNothingOnItsOwn();
    void filterActsBehindTheCapitals();
    void functionKeyGoesToItsControlOnly();
    void keysOfAList();
    void keyOfTheWholeWindow();
    void escapeUnloadsOnlyWhenAsked();
    void doubleClickOnALabel();

    // Texts and changes.
    void changesAreTold();
    void textsAreReadAndWritten();
    void comboTextChoosesItsEntry();
    void tagsHoldAnyText();
    void buttonOfAMissingWindowIsDisabled();
    void controlOfFindsTheWholeControl();
};

void tst_form::enterGoesOnAsTab()
{
    key(form_, Qt::Key_Return);
    QVERIFY(form_->txtDois->hasFocus());
    key(form_, Qt::Key_Enter);
    QVERIFY(form_->cboTres->hasFocus());
    key(form_, Qt::Key_Return);
    QVERIFY(form_->cboFixo->hasFocus());
}

void tst_form::tabGoesRoundInsideItsChildWindow()
{
    QMainWindow main;
    auto *area = new QMdiArea;
    main.setCentralWidget(area);
    main.resize(1200, 900);
    auto *one = new frmProva;
    area->addSubWindow(new frmProva(u"frmOutra"_s))->show();
    area->addSubWindow(one)->show();
    main.show();
    main.activateWindow();
    QTRY_COMPARE(QApplication::activeWindow(), &main);
    one->btnFazer->setFocus();
    key(one, Qt::Key_Tab);
    QVERIFY(one->txtUm->hasFocus());
    key(one, Qt::Key_Return, Qt::ShiftModifier);
    QVERIFY(one->btnFazer->hasFocus());
}

void tst_form::shiftEnterGoesBack()
{
    form_->cboTres->setFocus();
    key(form_, Qt::Key_Return, Qt::ShiftModifier);
    QVERIFY(form_->txtDois->hasFocus());
}

void tst_form::enterPressesTheFocusedButton()
{
    moveTo(form_->btnFazer);
    told.clear();
    key(form_, Qt::Key_Return);
    QCOMPARE(told, QStringList{u"btnFazer Click"_s});
    QVERIFY(form_->btnFazer->hasFocus());
}

void tst_form::enterOnAListIsADoubleClickOnce()
{
    moveTo(form_->Lista);
    form_->Lista->selectRow(1);
    told.clear();
    key(form_, Qt::Key_Return);
    QCOMPARE(told, QStringList{u"Lista DblClick 1"_s});
    QVERIFY(form_->Lista->hasFocus());
}

void tst_form::enterOnAListWithoutAUseForItGoesOn()
{
    form_->Lista->clear(); // no row, nothing to double click
    moveTo(form_->Lista);
    key(form_, Qt::Key_Return);
    QVERIFY(form_->btnFazer->hasFocus());
    auto *free = form_->add<ui::ListView>(u"lstLivre"_s);
    free->addColumn(u"Código"_s, 1000);
    free->addItem(u"0001"_s);
    auto *behind = form_->add<QLineEdit>(u"txtDepois"_s);
    moveTo(free);
    key(form_, Qt::Key_Return);
    QVERIFY(behind->hasFocus());
    key(form_, Qt::Key_Return, Qt::ShiftModifier);
    QVERIFY(free->hasFocus());
}

void tst_form::enterShowsTheFocusAsTabDoes_data()
{
    QTest::addColumn<Make>("make");
    QTest::newRow("button") << Make([](frmProva &form) -> QWidget * {
        auto *button = form.add<QPushButton>(u"btnOutro"_s);
        button->setText(u"Outro"_s);
        return button;
    });
    QTest::newRow("check box") << Make([](frmProva &form) -> QWidget * {
        auto *box = form.add<QCheckBox>(u"chkOutro"_s);
        box->setText(u"Outro"_s);
        return box;
    });
    QTest::newRow("tabs") << Make([](frmProva &form) -> QWidget * {
        auto *tabs = form.add<QTabWidget>(u"tabOutro"_s);
        tabs->addTab(new QWidget, u"Um"_s);
        return tabs;
    });
    QTest::newRow("list") << Make([](frmProva &form) -> QWidget * {
        auto *list = form.add<ui::ListView>(u"lstOutra"_s);
        list->addColumn(u"Código"_s, 1000);
        list->addItem(u"0001"_s);
        return list;
    });
}

/// As pictures: what the user sees.
void tst_form::enterShowsTheFocusAsTabDoes()
{
    QFETCH(Make, make);
    const auto picture = [&make](Qt::Key arrival) {
        frmProva form(u"frmOutra"_s);
        auto *before = form.add<QLineEdit>(u"txtAntes"_s);
        auto *control = make(form);
        form.show();
        form.activateWindow();
        [&] { QVERIFY(QTest::qWaitForWindowActive(&form)); }();
        moveTo(before);
        if (arrival != Qt::Key_unknown) {
            key(&form, arrival);
            [&] { QCOMPARE(form.focusWidget()->window(), &form); }();
            [&] { QVERIFY(!before->hasFocus()); }();
        }
        return control->grab().toImage();
    };
    const auto byEnter = picture(Qt::Key_Return);
    QCOMPARE(byEnter, picture(Qt::Key_Tab));
    QVERIFY(byEnter != picture(Qt::Key_unknown));
}

/// The row is not chosen by that: nothing is loaded, and a key that deletes finds nothing.
void tst_form::arrivingAtAListMarksItsFirstRow()
{
    const auto firstRow = [this] {
        const auto place = form_->Lista->visualRect(form_->Lista->model()->index(0, 0));
        return form_->Lista->viewport()->grab(place).toImage();
    };
    moveTo(form_->dtpCinco);
    const auto without = firstRow();
    told.clear();
    key(form_, Qt::Key_Tab);
    QVERIFY(form_->Lista->hasFocus());
    QCOMPARE(form_->Lista->currentIndex().row(), 0);
    QCOMPARE(form_->Lista->selectedRow(), -1);
    QCOMPARE(told, QStringList{u"Lista GotFocus"_s});
    QVERIFY(firstRow() != without);
}

/// The focus comes with the click: the first row is marked without a move of the rows.
void tst_form::aClickOnAScrolledListTakesTheRowUnderIt()
{
    for (int row = 0; row < 300; ++row) {
        form_->Lista->addItem(QString::number(row));
    }
    const int last = form_->Lista->count() - 1;
    form_->Lista->ensureVisible(last);
    clickRow(form_->Lista, last);
    QCOMPARE(form_->Lista->selectedRow(), last);
}

void tst_form::movesInAListChooseFromTheFirstRow_data()
{
    QTest::addColumn<Qt::Key>("pressed");
    QTest::addColumn<int>("row");
    QTest::newRow("down") << Qt::Key_Down << 1;
    QTest::newRow("home") << Qt::Key_Home << 0;
    QTest::newRow("up") << Qt::Key_Up << 0;
    QTest::newRow("end") << Qt::Key_End << 2;
}

void tst_form::movesInAListChooseFromTheFirstRow()
{
    QFETCH(Qt::Key, pressed);
    QFETCH(int, row);
    form_->Lista->addItem(u"0003"_s);
    moveTo(form_->dtpCinco);
    key(form_, Qt::Key_Tab);
    key(form_, pressed);
    QCOMPARE(form_->Lista->selectedRow(), row);
    QCOMPARE(told.last(), u"Lista Click %1"_s.arg(row));
    QCOMPARE(told.filter(u"Click"_s).size(), 1);
}

void tst_form::aListThatIsFilledUnderTheFocusMarksItsFirstRow()
{
    moveTo(form_->Lista);
    form_->Lista->clear();
    form_->Lista->addItem(u"0007"_s);
    form_->Lista->addItem(u"0008"_s);
    QCoreApplication::processEvents();
    QCOMPARE(form_->Lista->currentIndex().row(), 0);
    QCOMPARE(form_->Lista->selectedRow(), -1);
    key(form_, Qt::Key_Down);
    QCOMPARE(form_->Lista->selectedRow(), 1);
}

void tst_form::enterInALongTextGoesOn()
{
    form_->txtObs->setFocus();
    key(form_, Qt::Key_Return);
    QVERIFY(form_->spnQuatro->hasFocus());
    QCOMPARE(form_->txtObs->toPlainText(), QString());
}

void tst_form::enterInAnOpenComboChoosesOnly()
{
    form_->cboFixo->setFocus();
    form_->cboFixo->showPopup();
    auto *view = form_->cboFixo->view();
    QVERIFY(QTest::qWaitForWindowExposed(view->window()));
    QTest::keyClick(view->window()->windowHandle(), Qt::Key_Down);
    QTest::keyClick(view->window()->windowHandle(), Qt::Key_Return);
    QTRY_VERIFY(!view->isVisible());
    QCOMPARE(form_->cboFixo->currentIndex(), 1);
    QVERIFY(form_->cboFixo->hasFocus());
}

void tst_form::enterLeavesADatePickerWhole()
{
    form_->dtpCinco->setFocus();
    key(form_, Qt::Key_Return);
    QVERIFY(form_->Lista->hasFocus());
    form_->dtpCinco->setFocus();
    key(form_, Qt::Key_Tab);
    QVERIFY(form_->Lista->hasFocus());
}

void tst_form::typedLettersBecomeCapitals_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stands");
    QTest::newRow("letters") << u"joao da silva"_s << u"JOAO DA SILVA"_s;
    QTest::newRow("accents") << u"açúcar é ÿ"_s << u"AÇÚCAR É Ÿ"_s;
    QTest::newRow("no letter becomes two") << u"straße"_s << u"STRAßE"_s;
    QTest::newRow("digits and marks") << u"r$ 1.250,00 @"_s << u"R$ 1.250,00 @"_s;
}

void tst_form::typedLettersBecomeCapitals()
{
    QFETCH(QString, typed);
    typeText(form_, typed);
    QTEST(form_->txtUm->text(), "stands");
    form_->cboTres->setFocus();
    form_->cboTres->clearEditText();
    typeText(form_, typed);
    QTEST(form_->cboTres->currentText(), "stands");
    form_->txtObs->setFocus();
    typeText(form_, typed);
    QTEST(form_->txtObs->toPlainText(), "stands");
}

void tst_form::inputMethodTextBecomesCapitals()
{
    commit(form_->txtUm, u"ã"_s);
    commit(form_->txtUm, u"êxito"_s);
    QCOMPARE(form_->txtUm->text(), u"ÃÊXITO"_s);
    form_->cboTres->clearEditText();
    form_->cboTres->setFocus();
    commit(form_->cboTres, u"ô"_s);
    QCOMPARE(form_->cboTres->currentText(), u"Ô"_s);
    form_->digitsOnly();
    form_->txtUm->clear();
    commit(form_->txtUm, u"1a2"_s);
    QCOMPARE(form_->txtUm->text(), u"12"_s);
}

void tst_form::pastedTextStays()
{
    QApplication::clipboard()->setText(u"João"_s);
    key(form_, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(form_->txtUm->text(), u"João"_s);
}

void tst_form::broughtLettersStayAsTheyAre()
{
    QFETCH(const Bring, bring);
    bring(*form_->txtUm, u"João"_s);
    QCOMPARE(form_->txtUm->text(), u"João"_s);
    bring(*form_->cboTres->lineEdit(), u"ação"_s);
    QVERIFY2(form_->cboTres->currentText().contains(u"ação"_s), qPrintable(form_->cboTres->currentText()));
}

void tst_form::pastedDigitsAreAllThatADigitsBoxTakes()
{
    QFETCH(const Bring, bring);
    form_->digitsOnly();
    bring(*form_->txtUm, u"CPF 111.444-35\n"_s);
    QCOMPARE(form_->txtUm->text(), u"11144435"_s);
}

void tst_form::pastedLineBreaksBecomeBlanks()
{
    QFETCH(const Bring, bring);
    bring(*form_->txtUm, u"RUA A\r\nBAIRRO B\nCASA\t1\x01"_s);
    QCOMPARE(form_->txtUm->text(), u"RUA A BAIRRO B CASA 1"_s);
    bring(*form_->txtObs, u"RUA A\r\nBAIRRO B\x01"_s);
    QCOMPARE(form_->txtObs->toPlainText(), u"RUA A\nBAIRRO B"_s);
}

void tst_form::pastedTextFindsRoomForWhatTheBoxTakes()
{
    QFETCH(const Bring, bring);
    form_->digitsOnly();
    form_->txtUm->setMaxLength(8);
    bring(*form_->txtUm, u"(11)-(222)-(333)-4"_s);
    QCOMPARE(form_->txtUm->text(), u"11222333"_s);
}

void tst_form::aReadOnlyBoxTakesNothing()
{
    QFETCH(const Bring, bring);
    form_->txtUm->setText(u"fica"_s);
    form_->txtUm->setReadOnly(true);
    bring(*form_->txtUm, u"novo"_s);
    QCOMPARE(form_->txtUm->text(), u"fica"_s);
}

void tst_form::aPasteCanBeTidiedAsAWhole()
{
    form_->tidied();
    paste(*form_->txtUm, u"1/2"_s);
    QCOMPARE(form_->txtUm->text(), u"01/02"_s);
    typeText(form_, u"1/2"_s);
    QCOMPARE(form_->txtUm->text(), u"01/021/2"_s);
}

void tst_form::tellsWhatTheUserPutsIn()
{
    QStringList told;
    QObject::connect(form_->txtUm, &QLineEdit::textChanged, this,
                     [&] { told << form_->txtUm->text() + (ui::userInserts(form_->txtUm) ? u" in"_s : u" no"_s); });
    typeText(form_, u"aB"_s);
    key(form_, Qt::Key_Backspace);
    paste(*form_->txtUm, u"c"_s);
    form_->txtUm->setText(u"D"_s);
    commit(form_->txtUm, u"e"_s);
    QCOMPARE(told, (QStringList{u"A in"_s, u"AB in"_s, u"A no"_s, u"Ac in"_s, u"D no"_s, u"DE in"_s}));
    QVERIFY(!ui::userInserts(form_->txtUm));
}

void tst_form::shortcutsAreNotTyped()
{
    typeText(form_, u"abc"_s);
    key(form_, Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(form_->txtUm->selectedText(), u"ABC"_s);
    key(form_, Qt::Key_Backspace);
    QCOMPARE(form_->txtUm->text(), QString());
}

void tst_form::comboOffersNothingOnItsOwn()
{
    form_->cboTres->setFocus();
    form_->cboTres->clearEditText();
    typeText(form_, u"b"_s);
    QCOMPARE(form_->cboTres->currentText(), u"B"_s);
    typeText(form_, u"elga"_s);
    key(form_, Qt::Key_Return);
    QCOMPARE(form_->cboTres->count(), 2);
}

void tst_form::filterActsBehindTheCapitals()
{
    form_->digitsOnly();
    typeText(form_, u"a1b2"_s);
    QCOMPARE(form_->txtUm->text(), u"12"_s);
    key(form_, Qt::Key_Backspace);
    QCOMPARE(form_->txtUm->text(), u"1"_s);
    form_->txtDois->setFocus();
    typeText(form_, u"a1"_s);
    QCOMPARE(form_->txtDois->text(), u"A1"_s);
}

void tst_form::functionKeyGoesToItsControlOnly()
{
    key(form_, Qt::Key_F1);
    QCOMPARE(told, QStringList{u"txtUm F1"_s});
    moveTo(form_->txtDois);
    told.clear();
    key(form_, Qt::Key_F1);
    QVERIFY(told.isEmpty());
}

void tst_form::keysOfAList()
{
    moveTo(form_->Lista);
    form_->Lista->selectRow(0);
    told.clear();
    key(form_, Qt::Key_Delete);
    QTest::sendKeyEvent(QTest::Click, windowOf(form_), Qt::Key_P, u"p"_s, Qt::NoModifier);
    QCOMPARE(told, (QStringList{u"Lista Delete"_s, u"Lista P"_s}));
    key(form_, Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(told.size(), 2);
    key(form_, Qt::Key_Down);
    QCOMPARE(told.last(), u"Lista Click 1"_s);
}

void tst_form::keyOfTheWholeWindow()
{
    form_->watchWholeWindow();
    key(form_, Qt::Key_F5);
    form_->btnFazer->setFocus();
    key(form_, Qt::Key_F5);
    QCOMPARE(told.count(u"Window F5"_s), 2);
}

void tst_form::escapeUnloadsOnlyWhenAsked()
{
    key(form_, Qt::Key_Escape);
    QVERIFY(!form_->unloading());
    form_->allowEscape();
    const QPointer<frmProva> form = std::exchange(form_, nullptr);
    key(form, Qt::Key_Escape);
    QTRY_VERIFY(!form);
    QVERIFY(told.isEmpty());
}

void tst_form::doubleClickOnALabel()
{
    const auto *label = form_->lblSeis;
    QTest::mouseDClick(windowOf(label), Qt::LeftButton, {}, placeOf(label, QPoint(2, 2)));
    QCOMPARE(told, QStringList{u"lblSeis DblClick"_s});
}

void tst_form::changesAreTold()
{
    form_->txtUm->setText(u"A"_s);
    form_->cboTres->setCurrentIndex(1);
    form_->cboTres->setEditText(u"X"_s);
    form_->cboFixo->setCurrentIndex(1);
    form_->txtObs->setPlainText(u"B"_s);
    form_->spnQuatro->setValue(3);
    form_->dtpCinco->setDate(QDate(2024, 5, 15));
    form_->lblSeis->setText(u"C"_s);
    form_->lblSeis->setText(u"C"_s);
    QCOMPARE(told, (QStringList{u"txtUm Change"_s, u"cboTres Change"_s, u"cboTres Change"_s, u"cboFixo Change"_s,
                                u"txtObs Change"_s, u"spnQuatro Change"_s, u"dtpCinco Change"_s, u"lblSeis Change"_s}));
}

void tst_form::textsAreReadAndWritten()
{
    const QList<std::pair<QWidget *, QString>> rows{
        {form_->txtUm, u"um"_s},        {form_->cboTres, u"livre"_s},   {form_->cboFixo, u"Jurídica"_s},
        {form_->txtObs, u"a\nb"_s},     {form_->spnQuatro, u"7"_s},     {form_->dtpCinco, u"29/02/2024"_s},
        {form_->lblSeis, u"legenda"_s}, {form_->btnFazer, u"Salvar"_s}, {form_, u"OFICINA - [Teste]"_s},
    };
    for (const auto &[control, text] : rows) {
        ui::setTextOf(control, text);
        QCOMPARE(ui::textOf(control), text);
    }
    QCOMPARE(told.count(u"lblSeis Change"_s), 1);
    ui::setTextOf(form_->dtpCinco, u"31/02/2024"_s);
    QCOMPARE(ui::textOf(form_->dtpCinco), u"29/02/2024"_s);
}

void tst_form::comboTextChoosesItsEntry()
{
    ui::setTextOf(form_->cboTres, u"BREMBO"_s);
    QCOMPARE(form_->cboTres->currentIndex(), 1);
    told.clear();
    ui::setTextOf(form_->cboTres, u"OUTRA"_s);
    QCOMPARE(form_->cboTres->currentIndex(), -1);
    QCOMPARE(form_->cboTres->currentText(), u"OUTRA"_s);
    QCOMPARE(told, QStringList{u"cboTres Change"_s});
    ui::setTextOf(form_->cboFixo, u"nenhuma"_s);
    QCOMPARE(form_->cboFixo->currentIndex(), -1);
}

void tst_form::tagsHoldAnyText()
{
    QCOMPARE(ui::tagOf(form_->txtUm), QString());
    ui::setTagOf(form_->txtUm, u"P"_s);
    QCOMPARE(ui::tagOf(form_->txtUm), u"P"_s);
    QCOMPARE(ui::tagOf(form_->txtDois), QString());
}

void tst_form::buttonOfAMissingWindowIsDisabled()
{
    ui::Forms::instance().add(u"frmExiste"_s, [] { return new frmProva; });
    form_->needs(u"frmExiste"_s);
    QVERIFY(form_->btnFazer->isEnabled());
    form_->needs(u"frmQueNaoExiste"_s);
    QVERIFY(!form_->btnFazer->isEnabled());
}

void tst_form::controlOfFindsTheWholeControl()
{
    QCOMPARE(form_->controlOf(form_->cboTres->lineEdit()), form_->cboTres);
    QCOMPARE(form_->controlOf(form_->cboTres->view()->viewport()), form_->cboTres);
    QCOMPARE(form_->controlOf(form_->Lista->viewport()), form_->Lista);
    QCOMPARE(form_->controlOf(form_->txtUm), form_->txtUm);
    auto *scroll = form_->add<QScrollArea>(u"rolagem"_s);
    auto *field = new QLineEdit;
    scroll->setWidget(field);
    QCOMPARE(form_->controlOf(field), field);
}

int main(int argc, char **argv)
{
    return support::runTest<tst_form>(argc, argv);
}

#include "tst_form.moc"
