#include "tests/shell/configura.h"

#include "documents/parcelas.h"
#include "estimates/estimates.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/listview.h"
#include "registers/registers.h"
#include "support/modal.h"

#include <QComboBox>
#include <QImage>

#include <algorithm>
#include <variant>

using namespace Qt::StringLiterals;

namespace
{

QString printed()
{
    QStringList lines;
    for (const printer::Page &page : printer::printer().lastDocument()) {
        lines << page.lines();
    }
    return lines.join(u'\n');
}

} // namespace

/// What a setting that is changed by the menu does in the windows and on paper, at the next reading and without a new
/// start.
class TstConfiguracoesUsos : public SettingsTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { start(); }
    void cleanup() { stop(); }

    void anAddressOf60CharactersPrintsCutTo48_data();
    void anAddressOf60CharactersPrintsCutTo48();
    void theSavedLogoIsPrinted();
    void completionStaysOffInACombo();
    void theNextStartBringsCompletionBack();
    void aRateOf150IsReadAsFifteenPerCent();
    void registersFillTheirListsByTheSetting();
    void theCustomisationFollowsAtTheNextStart();

private:
    void printAnEstimate();
    QString completed();
};

void TstConfiguracoesUsos::initTestCase()
{
    shell::registerForms();
    registers::registerForms();
    estimates::registerForms();
}

/// Written in its window, and printed behind its question.
void TstConfiguracoesUsos::printAnEstimate()
{
    ui::Forms::instance().Show(u"frmOSOrcaNovo"_s);
    auto *form = ui::Forms::instance().find(u"frmOSOrcaNovo"_s);
    support::type(form, u"txtNome"_s, u"MARIA"_s);
    support::type(form, u"cboMarca"_s, u"GOL"_s);
    support::type(form, u"txtQuantidade"_s, u"1"_s);
    support::type(form, u"txtDescricao"_s, u"REVISÃO"_s);
    support::type(form, u"txtValor"_s, u"100"_s);
    support::click(form, u"btnItemAdd"_s);
    boxes_->question(u"Confirma impressão do orçamento"_s, true);
    support::click(form, u"btnPrint"_s);
    boxes_->finish();
}

void TstConfiguracoesUsos::anAddressOf60CharactersPrintsCutTo48_data()
{
    QTest::addColumn<QString>("layout");
    for (const char *layout : {"1", "2", "3"}) {
        QTest::newRow(layout) << QString::fromLatin1(layout);
    }
}

void TstConfiguracoesUsos::anAddressOf60CharactersPrintsCutTo48()
{
    QFETCH(const QString, layout);
    const QString address = u"RUA DAS LARANJEIRAS, 1234, FUNDOS, GALPÃO 3, PRÓXIMO À PONTE"_s;
    QCOMPARE(address.size(), 60);
    boxes_->input(u"Digite o Código do Layout de Impressão de Ordens de Serviços"_s, layout).information(done);
    ask(u"itmConfigLayoutOS"_s);
    boxes_->input(u"Digite o Endereço da Empresa"_s, address).information(done);
    ask(u"itmConfigEndereco"_s);

    printAnEstimate();

    const QString paper = printed();
    const QString cut = u"RUA DAS LARANJEIRAS, 1234, FUNDOS, GALPÃO 3, PRÓ"_s;
    QCOMPARE(cut.size(), 48);
    QVERIFY2(paper.contains(cut), qPrintable(paper));
    QVERIFY2(!paper.contains(cut + u'X'), qPrintable(paper));
    boxes_->inputKeep(u"Digite o Endereço da Empresa"_s, cut).information(done); // and so it is offered
    ask(u"itmConfigEndereco"_s);
}

void TstConfiguracoesUsos::theSavedLogoIsPrinted()
{
    QImage made(1200, 350, QImage::Format_RGB32);
    made.fill(Qt::blue);
    QVERIFY(made.save(program_->path(u"DADOS/logo.bmp"_s)));
    ask(u"itmConfigLogo"_s);
    boxes_->information(u"Gravação efetuada com sucesso!"_s);
    support::click(ui::Forms::instance().find(u"frmConfigLogo"_s), u"Command6"_s);
    boxes_->finish();
    program_->config(u"LayoutOS"_s, u"2"_s);

    printAnEstimate();

    const auto &marks = printer::printer().lastDocument().front().marks();
    const auto found = std::ranges::find_if(
        marks, [](const printer::Mark &mark) { return std::holds_alternative<printer::PictureMark>(mark); });
    QVERIFY(found != marks.end());
    const auto &logo = std::get<printer::PictureMark>(*found);
    QCOMPARE(logo.size, QSizeF(12, 3.5) * printer::twipsPerCentimetre);
    QVERIFY(logo.picture.size() != made.size()); // the one that was saved, in its size
    QCOMPARE(logo.picture.pixelColor(5, 5), QColor(Qt::blue));
}

/// What a combo makes of a "G" that is typed.
QString TstConfiguracoesUsos::completed()
{
    ui::Forms::instance().Unload(u"frmCadaPecas"_s);
    ui::Forms::instance().Show(u"frmCadaPecas"_s);
    auto *form = ui::Forms::instance().find(u"frmCadaPecas"_s);
    support::type(form, u"cboMarca"_s, u"G"_s, false);
    return support::control<QComboBox>(form, u"cboMarca"_s)->currentText();
}

void TstConfiguracoesUsos::completionStaysOffInACombo()
{
    program_->sql(u"INSERT INTO Combos (Codigo, Texto) VALUES (1, 'GOL 1.0')"_s);
    QCOMPARE(completed(), u"GOL 1.0"_s);
    boxes_->input(yesOrNo(u"Imprimir Formas de Pagamento nas Ordens de Serviços? Digite:"_s), u"N"_s).information(done);
    ask(u"itmConfigPrintFormaPagtoOs"_s);
    isStored(u"AutoComplete"_s, u"S"_s); // says otherwise
    QCOMPARE(completed(), u"G"_s);
    QCOMPARE(completed(), u"G"_s);
}

void TstConfiguracoesUsos::theNextStartBringsCompletionBack()
{
    boxes_->input(yesOrNo(u"Imprimir Formas de Pagamento nas Ordens de Serviços? Digite:"_s), u"N"_s).information(done);
    ask(u"itmConfigPrintFormaPagtoOs"_s);
    QVERIFY(!core::AutoCompletar);
    support::whenShown(u"frmSenha"_s,
                       [] { support::click(ui::Forms::instance().find(u"frmSenha"_s), u"btnCancelar"_s); });
    QVERIFY_EXCEPTION_THROWN(ui::Forms::instance().Load(u"frmSplash"_s), ui::ProgramEnded);
    QVERIFY(core::AutoCompletar);
    ui::Application::resetEnd();
    shell::desmonta();
}

void TstConfiguracoesUsos::aRateOf150IsReadAsFifteenPerCent()
{
    boxes_->input(u"Digite o valor de desconto (%) máximo permitido para ordens de serviços"_s, u"150"_s)
        .information(done);
    ask(u"itmConfigDesconto"_s);
    const float discount = documents::DescontoMaximo(u"100,00"_s, core::Config(u"Desconto"_s));
    QCOMPARE(runtime::Format(discount, u"###,##0.00"), u"15,00"_s);
}

void TstConfiguracoesUsos::registersFillTheirListsByTheSetting()
{
    program_->customer(u"MARIA"_s);
    const QString prompt = yesOrNo(u"Ativar Preenchimento Automático de Cadastros (aumenta desempenho) ? Digite:"_s);
    for (const auto &[answer, rows] : {std::pair{u"N"_s, 0}, {u"S"_s, 1}}) {
        boxes_->input(prompt, answer).information(done);
        ask(u"itmConfigCadastroAutomatico"_s);
        ui::Forms::instance().Show(u"frmCadaCliente"_s);
        auto *list = ui::Forms::instance().find(u"frmCadaCliente"_s)->findChild<ui::ListView *>();
        QCOMPARE(list->count(), rows);
        ui::Forms::instance().Unload(u"frmCadaCliente"_s);
    }
}

void TstConfiguracoesUsos::theCustomisationFollowsAtTheNextStart()
{
    ui::Forms::instance().add(u"frmMoviLivroOrigem"_s, [] { return new ui::Form(u"frmMoviLivroOrigem"_s); });
    const auto available = [] { return shell::principal().findChild<QAction *>(u"itmMoviOrigem"_s)->isEnabled(); };
    boxes_->input(u"Digite o Código de Personalização da Empresa"_s, u"1-1"_s).information(done);
    ask(u"itmConfigPersonalizacao"_s);
    QVERIFY(!available());
    shell::fechaPrincipal();
    shell::principal().MDIForm_Load();
    QVERIFY(available());
    QVERIFY(program_->rows(u"SELECT * FROM LivroOrigem"_s).empty());
}

TARVELO_TEST_MAIN(TstConfiguracoesUsos)
#include "tst_configuracoes_usos.moc"
