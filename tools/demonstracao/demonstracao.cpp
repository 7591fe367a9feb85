// Works the real windows off screen as a new user would, on a scratch folder: a new installation, the first operator, a
// login, an order for a plate that nobody knows, one order for each payment form, a discount, a preview and a print.
// Each step prints a line; pictures of the windows and the printed PDFs land in the folder given as argument.
#include "tests/support/boxes.h"
#include "tests/support/modal.h"
#include "tests/support/program.h"

#include "core/config.h"
#include "core/modulo.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/form.h"
#include "platform/ui/forms.h"
#include "platform/ui/listview.h"
#include "platform/ui/wait.h"
#include "registers/registers.h"
#include "reports/reports.h"
#include "shell/shell.h"
#include "workorders/workorders.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QMainWindow>
#include <QMdiArea>
#include <QTabWidget>
#include <QTest>

#include <cstdio>

using namespace Qt::StringLiterals;
using support::Boxes;
using support::click;
using support::type;

namespace
{

ui::Form *form(const QString &name)
{
    return ui::Forms::instance().find(name);
}

void done(const QString &step)
{
    if (!QTest::currentTestFailed()) {
        std::printf("%s\n", qPrintable(step));
        std::fflush(stdout);
    }
}

class Demonstracao : public QObject
{
    Q_OBJECT

public:
    explicit Demonstracao(const QString &folder) : results_(folder) {}

private slots:
    void initTestCase();
    void novaInstalacaoPrimeiroOperadorELogin();
    void ordemParaPlacaDesconhecida();
    void umaOrdemParaCadaFormaDePagamento();
    void descontoEImpressao();
    void preVisualizacao();
    void fechaEReabre();

private:
    void picture(const QString &name, QWidget *widget = nullptr) const;
    QMainWindow *mainWindow() const;
    void choose(const QString &item) const;
    void firstOperator() const;
    void logIn() const;
    void start() const;
    void addItem(const QString &quantity, const QString &description, const QString &value) const;
    QString openOrder(Boxes &boxes) const;
    void showOrder(const QString &code) const;
    void closeOrder(int tab, const std::function<void(QWidget *)> &fill, Boxes &boxes, bool print,
                    const QStringList &chequeNumbers = {}) const;
    void prepareSecondLayout() const;

    QDir results_;
    QTemporaryDir folder_;
};

QMainWindow *Demonstracao::mainWindow() const
{
    for (auto *window : QApplication::topLevelWidgets()) {
        if (auto *main = qobject_cast<QMainWindow *>(window); main && window->objectName() == u"frmMDI"_s) {
            return main;
        }
    }
    return nullptr;
}

void Demonstracao::picture(const QString &name, QWidget *widget) const
{
    auto *subject = widget ? widget->window() : mainWindow();
    QVERIFY2(subject, qPrintable(name));
    QVERIFY(subject->grab().save(results_.filePath(name + u".png"_s)));
}

void Demonstracao::choose(const QString &item) const
{
    auto *action = mainWindow()->findChild<QAction *>(item);
    QVERIFY2(action && action->isEnabled(), qPrintable(item));
    action->trigger();
}

void Demonstracao::initTestCase()
{
    QVERIFY(results_.mkpath(u"."_s));
    QVERIFY(folder_.isValid());
    QDir folder(folder_.path());
    QVERIFY(folder.mkdir(u"DADOS"_s));
    for (const auto &file : QDir(QStringLiteral(FIGURAS)).entryInfoList({u"*.bmp"_s})) {
        QVERIFY(QFile::copy(file.filePath(), folder.filePath(u"DADOS/"_s + file.fileName())));
    }
    core::App::setPath(folder_.path());
    shell::liga();
    printer::printer().setOutputFolder(results_);
    ui::setWaitFactor(0);
}

void Demonstracao::firstOperator() const
{
    auto *window = form(u"frmSenhaManut"_s);
    type(window, u"txtCodigo"_s, u"1"_s);
    type(window, u"txtNome"_s, u"marina"_s);
    type(window, u"txtSenha"_s, u"chave1"_s);
    type(window, u"txtConfirma"_s, u"chave1"_s, false);
    picture(u"frmSenhaManut"_s, window);
    click(window, u"btnIncluir"_s);
    click(window, u"btnCancelar"_s);
}

void Demonstracao::logIn() const
{
    auto *window = form(u"frmSenha"_s);
    type(window, u"txtCodigo"_s, u"1"_s);
    QCOMPARE(support::text(window, u"lblOperador"_s), u"MARINA"_s);
    picture(u"frmSenha"_s, window);
    type(window, u"txtSenha"_s, u"chave1"_s, false);
}

void Demonstracao::start() const
{
    shell::comeca();
    QTRY_VERIFY(mainWindow() && mainWindow()->isVisible());
    support::failNotShown();
}

void Demonstracao::novaInstalacaoPrimeiroOperadorELogin()
{
    support::whenShown(u"frmSenha"_s, [this] {
        picture(u"frmSplash"_s, form(u"frmSplash"_s));
        done(u"nova instalação: banco de dados criado, nenhum operador"_s);
        support::whenShown(u"frmSenhaManut"_s, [this] { firstOperator(); });
        click(form(u"frmSenha"_s), u"btnManutencao"_s);
        done(u"primeiro operador cadastrado, administrador"_s);
        logIn();
    });
    start();
    mainWindow()->resize(1024, 768);
    QVERIFY(QTest::qWaitForWindowActive(mainWindow()));
    picture(u"frmMDI"_s);
    done(u"login aceito, janela principal aberta"_s);
    choose(u"itmInfoSobre"_s);
    picture(u"frmInfo"_s);
    click(form(u"frmInfo"_s), u"cmdOK"_s);
}

void Demonstracao::addItem(const QString &quantity, const QString &description, const QString &value) const
{
    auto *window = form(u"frmOSAbre"_s);
    type(window, u"txtQuantidade"_s, quantity);
    type(window, u"txtDescricao"_s, description);
    type(window, u"txtValor"_s, value);
    click(window, u"btnItemAdd"_s);
}

void Demonstracao::ordemParaPlacaDesconhecida()
{
    Boxes boxes;
    choose(u"itmOSAbrir"_s);
    auto *window = form(u"frmOSAbre"_s);
    QVERIFY(window);

    boxes.question(u"Código/Placa do Veículo não localizado\nDeseja cadastrar agora?"_s, true)
        .question(u"Confirma a Inclusão"_s, true);
    support::whenShown(u"frmCadaFast"_s, [this] {
        auto *fast = form(u"frmCadaFast"_s);
        type(fast, u"txtNome"_s, u"joão da silva"_s);
        type(fast, u"txtEndereco"_s, u"rua das flores"_s);
        type(fast, u"txtNumero"_s, u"120"_s);
        type(fast, u"txtFone1"_s, u"1155551234"_s);
        type(fast, u"cboMarca"_s, u"gol 1.0"_s);
        type(fast, u"txtAno"_s, u"20192020"_s);
        type(fast, u"txtCor"_s, u"prata"_s);
        picture(u"frmCadaFast"_s, fast);
        click(fast, u"btnIncluir"_s);
    });
    type(window, u"txtCodVeiculo"_s, u"abc1d23"_s);
    support::failNotShown();
    QTRY_COMPARE(support::text(window, u"txtCodVeiculo"_s), u"1"_s);

    type(window, u"txtKm"_s, u"45200"_s);
    QCOMPARE(support::text(window, u"lblNome"_s), u"JOÃO DA SILVA"_s);
    type(window, u"txtObs"_s, u"barulho na roda dianteira"_s);
    type(window, u"txtMecanico"_s, u"pedro"_s);
    addItem(u"2"_s, u"rolamento dianteiro"_s, u"95,50"_s);
    addItem(u"1"_s, u"mão de obra"_s, u"180"_s);
    addItem(u"0,5"_s, u"graxa"_s, u"24"_s);
    QCOMPARE(support::text(window, u"lblTotal"_s), u"383,00"_s);
    picture(u"frmOSAbre"_s);

    boxes.question(u"Confirma Inclusão"_s, true);
    click(window, u"btnIncluir"_s);
    boxes.finish();
    QCOMPARE(core::DBDados->OpenRecordset(u"SELECT count(Codigo) FROM OrdemServico"_s).value(0), runtime::Value(1));
    done(u"ordem 0001 aberta para uma placa nova, com o cliente"_s);
}

QString Demonstracao::openOrder(Boxes &boxes) const
{
    choose(u"itmOSAbrir"_s);
    auto *window = form(u"frmOSAbre"_s);
    type(window, u"txtCodVeiculo"_s, u"ABC1D23"_s);
    addItem(u"1"_s, u"revisão"_s, u"300"_s);
    addItem(u"4"_s, u"vela de ignição"_s, u"25"_s);
    boxes.question(u"Confirma Inclusão"_s, true);
    click(window, u"btnIncluir"_s);
    boxes.finish();
    auto order = core::DBDados->OpenRecordset(u"SELECT * FROM OrdemServico ORDER BY Codigo"_s);
    order.MoveLast();
    return runtime::Format(order.value(u"Codigo"), u"0000");
}

void Demonstracao::showOrder(const QString &code) const
{
    auto *window = form(u"frmOSConsulta"_s);
    auto *list = support::control<ui::ListView>(window, u"Lista"_s);
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row).text() == code) {
            list->selectRow(row);
        }
    }
    support::key(window, u"Lista"_s, Qt::Key_Home);
    support::key(window, u"Lista"_s, Qt::Key_End);
    QCOMPARE(support::text(window, u"lblCodigo"_s), code);
}

void Demonstracao::closeOrder(int tab, const std::function<void(QWidget *)> &fill, Boxes &boxes, bool print,
                              const QStringList &chequeNumbers) const
{
    static const QStringList captions = {
        u"Fechar O.S. com Pagamento À Vista"_s,  u"Fechar O.S. com Pagto. Cheque Pré"_s,
        u"Fechar O.S. com Pagto. Parc. Carnê"_s, u"Fechar O.S. com Pagto. Parc. Cheque"_s,
        u"Fechar O.S. com Pagto. Outros"_s,      u"Fechar O.S. com Pagto Personalizado"_s};
    const auto code = openOrder(boxes);
    choose(u"itmOSFecha"_s);
    showOrder(code);
    if (tab == 0) {
        picture(u"frmOSConsulta"_s);
    }

    support::whenShown(u"frmOSFormaPagto"_s, [&] {
        auto *window = form(u"frmOSFormaPagto"_s);
        support::control<QTabWidget>(window, u"tabPagto"_s)->setCurrentIndex(tab);
        fill(window);
        picture(u"frmOSFormaPagto_%1"_s.arg(tab), window);
        boxes.question(captions[tab], true);
        for (int number = 0; number < chequeNumbers.size(); ++number) {
            boxes.input(u"Digite o Número do Cheque da 0%1ª Parcela"_s.arg(number + 1), chequeNumbers[number]);
        }
        boxes.question(u"Imprime Ordem de Serviço Nº "_s + code, print);
        if (print) {
            boxes.question(u"Imprimir Outra Via ?"_s, false);
        }
        click(window, u"btnFechar_%1"_s.arg(tab));
    });
    click(form(u"frmOSConsulta"_s), u"btnFechar"_s);
    support::failNotShown();
    boxes.finish();
    auto order = core::DBDados->OpenRecordset(u"SELECT EmAberto FROM OrdemServico WHERE Codigo = "_s + code);
    QCOMPARE(order.value(0), runtime::Value(false));
}

void Demonstracao::umaOrdemParaCadaFormaDePagamento()
{
    const auto inAWeek = runtime::Format(runtime::DateAdd(u"d", 7, runtime::Today()), u"dd/mm/yyyy");
    const auto typed = QString(inAWeek).remove(u'/');
    Boxes boxes;

    closeOrder(
        0, [](QWidget *window) { type(window, u"txtValor_0"_s, u"400"_s); }, boxes, false);
    done(u"paga à vista"_s);

    closeOrder(
        1,
        [&](QWidget *window) {
            type(window, u"txtBanco_1"_s, u"banco do brasil"_s);
            type(window, u"txtConta_1"_s, u"12345-6"_s);
            type(window, u"txtNumCheque"_s, u"000123"_s);
            type(window, u"txtData_1"_s, typed);
        },
        boxes, false);
    done(u"paga com cheque pré"_s);

    closeOrder(
        2,
        [](QWidget *window) {
            click(window, u"btnParcelasAdd_2"_s);
            click(window, u"btnParcelasAdd_2"_s);
        },
        boxes, false);
    done(u"parcelada no carnê"_s);

    closeOrder(3,
               [&](QWidget *window) {
                   click(window, u"btnParcelasAdd_3"_s);
                   type(window, u"txtBanco_3"_s, u"itaú"_s);
                   type(window, u"txtConta_3"_s, u"998-1"_s);
               },
               boxes, false, {u"501"_s, u"502"_s});
    done(u"parcelada em dois cheques"_s);

    closeOrder(
        4, [&](QWidget *window) { type(window, u"txtData_4"_s, typed); }, boxes, false);
    done(u"fiada na conta do cliente"_s);

    closeOrder(
        5,
        [&](QWidget *window) {
            type(window, u"txtParcela_5"_s, u"1"_s);
            type(window, u"txtValor_5"_s, u"400"_s);
            click(window, u"btnItemAdd"_s);
        },
        boxes, false);
    done(u"paga em plano personalizado"_s);
}

void Demonstracao::descontoEImpressao()
{
    core::GravaINI(u"Config"_s, u"Desconto"_s, u"0,10"_s, true);
    Boxes boxes;
    closeOrder(
        0,
        [&](QWidget *window) {
            boxes.exclamation(u"Desconto máximo é de R$ 40,00"_s);
            type(window, u"txtDesconto"_s, u"50"_s);
            type(window, u"txtDesconto"_s, u"40"_s);
            QCOMPARE(support::text(window, u"lblValor"_s), u"360,00"_s);
            type(window, u"txtValor_0"_s, u"360"_s);
        },
        boxes, true);
    QVERIFY(!printer::printer().lastDocument().empty());
    QVERIFY(!results_.entryList({u"*.pdf"_s}).isEmpty());
    done(u"paga com desconto e impressa"_s);
}

void Demonstracao::prepareSecondLayout() const
{
    core::GravaINI(u"Config"_s, u"LayoutOS"_s, u"2"_s, true);
    choose(u"itmOSConsultar"_s);
    auto *window = form(u"frmOSConsulta"_s);
    auto *state = support::control<QComboBox>(window, u"cboOS"_s);
    state->setCurrentIndex(2);
    const auto *list = support::control<ui::ListView>(window, u"Lista"_s);
    showOrder(list->item(list->count() - 1).text());
}

void Demonstracao::preVisualizacao()
{
    prepareSecondLayout();
    click(form(u"frmOSConsulta"_s), u"btnPrevisualizar"_s);
    QTRY_VERIFY(form(u"frmRelaPreVisualiza"_s));
    picture(u"frmRelaPreVisualiza"_s);
    click(form(u"frmRelaPreVisualiza"_s), u"btnVoltar"_s);
    done(u"ordem pré-visualizada"_s);
}

void Demonstracao::fechaEReabre()
{
    shell::desmonta();
    support::whenShown(u"frmSenha"_s, [this] { logIn(); });
    start();
    choose(u"itmOSConsultar"_s);
    QCOMPARE(support::control<ui::ListView>(form(u"frmOSConsulta"_s), u"Lista"_s)->item(0).text(), u"0001"_s);
    done(u"programa reaberto, a ordem 0001 continua lá"_s);
    shell::desmonta();
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ui::Application application(argc, argv);
    support::prepareApplication();
    shell::registerForms();
    registers::registerForms();
    workorders::registerForms();
    reports::registerForms();

    Demonstracao demonstration(argc > 1 ? QString::fromLocal8Bit(argv[1]) : u"demonstracao"_s);
    const int failures = QTest::qExec(&demonstration, {u"demonstracao"_s, u"-silent"_s});
    std::puts(failures == 0 ? "demonstração completa" : "a demonstração falhou");
    return failures == 0 ? 0 : 1;
}

#include "demonstracao.moc"
