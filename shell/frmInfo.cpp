#include "shell/frmInfo.h"

#include "core/caminhos.h"
#include "core/modulo.h"
#include "platform/ui/boxes.h"
#include "platform/ui/controls.h"
#include "ui_frmInfo.h"

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace shell
{
namespace
{

constexpr auto tamanhoDoIcone = QSize(64, 64);

QString doRegistro(const QString &chave, const QString &valor)
{
    const QSettings registro(u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\"_s + chave, QSettings::NativeFormat);
    return registro.value(valor).toString();
}

/// The system-information tool where the registry tells of one; "" elsewhere.
QString programaDeInformacoes()
{
    QString direto = doRegistro(u"Shared Tools\\MSINFO"_s, u"PATH"_s);
    if (!direto.isEmpty()) {
        return direto;
    }
    const QString pasta = doRegistro(u"Shared Tools Location"_s, u"MSINFO"_s);
    return pasta.isEmpty() ? QString() : pasta + u"\\MSINFO32.EXE"_s;
}

} // namespace

frmInfo::frmInfo() : Form(u"frmInfo"_s), ui_(std::make_unique<Ui::frmInfo>())
{
    ui_->setupUi(this);
    setEscapeUnloads(true);

    onClick(ui_->cmdOK, &frmInfo::cmdOK_Click);
    onClick(ui_->cmdSysInfo, &frmInfo::cmdSysInfo_Click);
}

frmInfo::~frmInfo() = default;

void frmInfo::Form_Load()
{
    setWindowTitle(core::captionOf(u" - [Sobre]"_s));
    ui_->imgIcone->setPixmap(qApp->windowIcon().pixmap(tamanhoDoIcone));
    ui_->imgIcone->setVisible(!qApp->windowIcon().isNull());
    ui_->lblTitle->setText(QString::fromUtf16(core::App::Title));
    ui_->lblVersion->setText(u"Versão "_s + core::App::version());
    ui::CentraForm(*this, false);
}

void frmInfo::cmdOK_Click()
{
    Unload();
}

void frmInfo::cmdSysInfo_Click()
{
    const QString programa = programaDeInformacoes();
    if (!QFileInfo::exists(programa) || !QProcess::startDetached(programa, {})) {
        ui::MsgBox(u"System Information Is Unavailable At This Time"_s, ui::Icon::Exclamation);
    }
}

} // namespace shell
