#include "shell/shell.h"

#include "core/devolucao.h"
#include "core/janelas.h"
#include "core/modulo.h"
#include "platform/printer/printer.h"
#include "platform/ui/application.h"
#include "platform/ui/controls.h"
#include "platform/ui/help.h"
#include "shell/frmConfigLogo.h"
#include "shell/frmConfigOrcamento.h"
#include "shell/frmInfo.h"
#include "shell/frmInfoAviso.h"
#include "shell/frmMDI.h"
#include "shell/frmManual.h"
#include "shell/frmSenha.h"
#include "shell/frmSenhaManut.h"
#include "shell/frmSplash.h"
#include "shell/instancia.h"

#include <QApplication>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace shell
{

void registerForms()
{
    core::RegistraJanela(u"frmConfigLogo"_s, [] { return new frmConfigLogo; });
    core::RegistraJanela(u"frmConfigOrcamento"_s, [] { return new frmConfigOrcamento; });
    core::RegistraJanela(u"frmInfo"_s, [] { return new frmInfo; });
    core::RegistraJanela(u"frmInfoAviso"_s, [] { return new frmInfoAviso; });
    core::RegistraJanela(u"frmManual"_s, [] { return new frmManual; });
    core::RegistraJanela(u"frmSenha"_s, [] { return new frmSenha; });
    core::RegistraJanela(u"frmSenhaManut"_s, [] { return new frmSenhaManut; });
    core::RegistraJanela(u"frmSplash"_s, [] { return new frmSplash; });
}

void liga()
{
    QApplication::setWindowIcon(ui::icon(u"tarvelo"_s));
    printer::printer().setOutputFolder(QDir(core::App::Path() + u"/impressos"_s));
    core::LigaPerguntas();
    core::LigaBanco();
    ui::setHelp(AbreManual);
}

void comeca()
{
    QTimer::singleShot(0, qApp, [] { ui::Application::run([] { ui::Forms::instance().Load(u"frmSplash"_s); }); });
}

void desmonta()
{
    ui::Forms::instance().unloadAll();
    fechaPrincipal();
    core::DBCEP.reset();
    core::DBDados.reset();
    liberaInstancia();
}

} // namespace shell
