#include "shell/frmMDI.h"

#include "core/andamento.h"
#include "core/banco.h"
#include "core/config.h"
#include "core/esquema.h"
#include "core/modulo.h"
#include "platform/printer/printer.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/application.h"
#include "platform/ui/boxes.h"
#include "platform/ui/forms.h"
#include "platform/ui/help.h"
#include "platform/ui/wait.h"
#include "shell/lembretes.h"
#include "shell/menus.h"
#include "shell/passos.h"
#include "ui_frmMDI.h"

#include <QCloseEvent>
#include <QDir>
#include <QKeyEvent>
#include <QMdiSubWindow>

using namespace Qt::StringLiterals;

namespace shell
{
namespace
{

std::unique_ptr<frmMDI> janelaPrincipal;

void avisaCritico(const QString &texto)
{
    ui::MsgBox(texto, ui::Icon::Critical);
}

/// A path as the user knows it: from the program folder on.
QString dentroDaPasta(const QString &arquivo)
{
    return QDir::toNativeSeparators(QDir(core::App::Path() + u'/').relativeFilePath(arquivo));
}

} // namespace

frmMDI::frmMDI() : ui_(std::make_unique<Ui::frmMDI>())
{
    ui_->setupUi(this);
    setWindowIcon(qApp->windowIcon());
    montaMenus(*ui_->MenuBar);
    montaBarra(*ui_->Toolbar1, *ui_->MenuBar);
    ui::Forms::instance().setArea(ui_->MDIArea, ui_->Toolbar1);
    ui::Forms::instance().setModeSource([] { return core::ModoChamada; });
    printer::printer().written = [this](const QString &arquivo) {
        ui_->StatusBar->setMensagem(u"impresso em "_s + dentroDaPasta(arquivo));
    };
    core::defineMostrador({.mostra = [this](const QString &obra, int feitos,
                                            int total) { ui_->StatusBar->mostraAndamento(obra, feitos, total); },
                           .termina = [this] { ui_->StatusBar->terminaAndamento(); },
                           .deixa = ui::EscapePressed});

    // Behind the press: a box that came up inside it would find the mouse held by the bar.
    connect(
        ui_->StatusBar, &BarraStatus::manutencao, this,
        [this] { ui::Application::run([this] { StatusBar_manutencao(); }); }, Qt::QueuedConnection);
}

frmMDI::~frmMDI()
{
    core::defineMostrador({});
    printer::printer().written = nullptr;
    ui::Forms::instance().setModeSource(nullptr);
    ui::Forms::instance().setArea(nullptr);
}

void frmMDI::mostraOperador(qint16 codigo, const QString &nome)
{
    ui_->StatusBar->setOperador(codigo, nome);
}

void frmMDI::MDIForm_Load()
{
    aplicaAdmin();
    mostraTitulos();
    showMaximized();
    activateWindow(); // where no window manager runs, nobody else gives it the keyboard
    passaErros([this] { carregaFundo(); });
    passaErros([] { core::CriarDB(avisaCritico); });
    personaliza(*ui_->MenuBar, core::Config(u"Personalizacao"_s));
    passaErros([] { LembraBackup(); });
    passaErros([this] { mostraUltimoBackup(); });
    passaErros([] { AvisaVencimentos(); });
}

void frmMDI::aplicaAdmin()
{
    if (!core::Administrador()) {
        fechaAoUsuario(*ui_->MenuBar, *ui_->Toolbar1);
    }
}

void frmMDI::mostraTitulos()
{
    const QString programa = QString::fromUtf16(core::App::Title) + u' ' + core::App::version();
    setWindowTitle(core::NomeEmpresa + u" - "_s + programa);
    ui_->StatusBar->setPrograma(programa);
}

void frmMDI::carregaFundo()
{
    if (core::Config(u"DesativarGraficos"_s) == u"N") {
        ui_->MDIArea->setFundo(core::App::Path() + core::ArquivoFundo);
    }
}

void frmMDI::mostraUltimoBackup()
{
    findChild<QAction *>(u"itmBackData"_s)->setText(UltimoBackup());
}

void frmMDI::StatusBar_manutencao()
{
    const QString comando = ui::InputBox(u"Comando SQL"_s);
    try {
        core::DBDados->Execute(comando);
    } catch (const runtime::RuntimeError &erro) {
        ui::MsgBox(erro.description(), ui::Icon::Critical);
        return;
    }
    ui::MsgBox(u"Comando Executado com sucesso"_s, ui::Icon::Information);
}

void frmMDI::closeEvent(QCloseEvent *event)
{
    event->accept();
    ui::Application::run([] { ui::End(); });
}

/// A window in the area answers its own keys: what comes here was pressed on the main window itself.
void frmMDI::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_F1 || event->modifiers() != Qt::NoModifier) {
        QMainWindow::keyPressEvent(event);
        return;
    }
    const auto *frente = ui_->MDIArea->activeSubWindow();
    ui::askHelp(frente != nullptr ? frente->widget()->objectName() : objectName());
}

frmMDI &principal()
{
    if (!janelaPrincipal) {
        janelaPrincipal = std::make_unique<frmMDI>();
    }
    return *janelaPrincipal;
}

void fechaPrincipal()
{
    janelaPrincipal.reset();
}

} // namespace shell
