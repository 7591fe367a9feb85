#include "shell/frmManual.h"

#include "ui_frmManual.h"

#include "core/janelas.h"
#include "core/modulo.h"
#include "platform/ui/boxes.h"
#include "platform/ui/forms.h"
#include "platform/ui/wait.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QShortcut>
#include <QUrl>

namespace shell
{

using namespace Qt::StringLiterals;

namespace
{

QString arquivoDoManual()
{
    return core::App::shipped(u"manual.html"_s);
}

} // namespace

frmManual::frmManual() : Form(u"frmManual"_s), ui_(std::make_unique<Ui::frmManual>())
{
    ui_->setupUi(this);
    setEscapeUnloads(true);

    onClick(ui_->btnLocalizar, &frmManual::btnLocalizar_Click);
    onClick(ui_->btnNavegador, &frmManual::btnNavegador_Click);
    onClick(ui_->btnVoltar, &frmManual::btnVoltar_Click);
    onKey(ui_->txtManual, Qt::Key_Return, &frmManual::txtManual_Enter);
    const auto *procura = new QShortcut(QKeySequence::Find, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(procura, &QShortcut::activated, this, bound(&frmManual::txtLocalizar_Foco));
}

frmManual::~frmManual() = default;

void frmManual::Form_Load()
{
    setWindowTitle(core::captionOf(u" - [Manual]"_s));
    ui::CentraForm(*this, false);
}

void frmManual::mostra(const QString &janela)
{
    const ui::Hourglass ampulheta;
    ui_->txtManual->mostra(arquivoDoManual(), janela);
    ui_->txtManual->setFocus();
}

/// Where no link is chosen the key goes on, and with Shift back, as in every window.
void frmManual::txtManual_Enter()
{
    const bool volta = QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
    if (volta || !ui_->txtManual->segueElo()) {
        focusNextPrevChild(!volta);
    }
}

void frmManual::txtLocalizar_Foco()
{
    core::SelecionaTexto(ui_->txtLocalizar);
}

void frmManual::btnLocalizar_Click()
{
    const QString texto = ui_->txtLocalizar->text().trimmed();
    if (!texto.isEmpty() && !ui_->txtManual->localiza(texto)) {
        core::Recusa(u"Texto não localizado no manual"_s, ui_->txtLocalizar);
    } else if (texto.isEmpty()) {
        txtLocalizar_Foco();
    }
}

void frmManual::btnNavegador_Click()
{
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(arquivoDoManual()))) {
        ui::MsgBox(u"Não foi possível abrir o navegador. O manual está no arquivo:\n"_s +
                       QDir::toNativeSeparators(arquivoDoManual()),
                   ui::Icon::Exclamation);
    }
}

void frmManual::btnVoltar_Click()
{
    Unload();
}

void AbreManual(const QString &janela)
{
    if (janela == u"frmSplash") {
        return;
    }
    if (!QFileInfo::exists(arquivoDoManual())) {
        ui::MsgBox(u"O manual não foi encontrado. Ele deveria estar no arquivo:\n"_s +
                       QDir::toNativeSeparators(arquivoDoManual()),
                   ui::Icon::Exclamation);
        return;
    }
    if (auto *manual = qobject_cast<frmManual *>(ui::Forms::instance().Show(u"frmManual"_s))) {
        manual->mostra(janela);
    }
}

} // namespace shell
