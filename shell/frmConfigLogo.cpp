#include "shell/frmConfigLogo.h"

#include "core/caminhos.h"
#include "core/figuras.h"
#include "core/modulo.h"
#include "platform/files/files.h"
#include "platform/files/replacefile.h"
#include "platform/ui/boxes.h"
#include "platform/ui/filebox.h"
#include "platform/ui/reasons.h"
#include "ui_frmConfigLogo.h"

#include <QBuffer>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace shell
{
namespace
{

/// On white paper, as a bitmap has no transparency.
QImage noTamanho(const QImage &figura, QSize tamanho)
{
    QImage pronta(tamanho, QImage::Format_RGB32);
    pronta.fill(Qt::white);
    QPainter pincel(&pronta);
    pincel.drawImage(0, 0, figura.scaled(tamanho, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    return pronta;
}

QPixmap reduzida(const QImage &figura, QSize lugar)
{
    const bool cabe = figura.width() <= lugar.width() && figura.height() <= lugar.height();
    return QPixmap::fromImage(cabe ? figura : figura.scaled(lugar, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

/// Whole or not at all, so that a full disk does not cost the old logo.
bool gravaFigura(const QImage &figura, const QString &arquivo)
{
    QBuffer bytes;
    const QString lugar = core::caminho(arquivo);
    files::clearLeftovers(lugar); // of a write that was killed
    return figura.save(&bytes, "BMP") && !files::isReadOnly(lugar) && files::replaceFile(lugar, bytes.data());
}

} // namespace

frmConfigLogo::frmConfigLogo() : Form(u"frmConfigLogo"_s), ui_(std::make_unique<Ui::frmConfigLogo>())
{
    ui_->setupUi(this);
    setEscapeUnloads(true);

    onClick(ui_->Command1, &frmConfigLogo::Command1_Click);
    onClick(ui_->Command6, &frmConfigLogo::Command6_Click);
    onClick(ui_->btnVoltar, &frmConfigLogo::btnVoltar_Click);
}

frmConfigLogo::~frmConfigLogo() = default;

void frmConfigLogo::Form_Load()
{
    ui::CentraForm(*this, false);
    setWindowTitle(core::captionOf(u" - [Configuração de Logo]"_s));
    mostra(core::LeFigura(core::ArquivoLogo));
}

/// `Picture1` has the size of `Image2`, whatever the picture's own is.
void frmConfigLogo::mostra(const QImage &figura)
{
    ui::enableIf(!figura.isNull(), ui_->Command6, u"Carregue uma imagem"_s, ui_->Command1);
    if (figura.isNull()) {
        ui_->Picture1->setText(u"Nenhum logo"_s);
        return;
    }
    logo_ = noTamanho(figura, ui_->Image2->maximumSize());
    ui_->Image1->setPixmap(reduzida(figura, ui_->Image1->maximumSize()));
    ui_->Image2->setPixmap(QPixmap::fromImage(logo_));
    ui_->Picture1->setPixmap(ui_->Image2->pixmap());
}

void frmConfigLogo::Command1_Click()
{
    const QString arquivo =
        ui::OpenFileBox(u"Selecione uma Imagem com seu Logo"_s, u"*.bmp - Arquivos BMP (bitmaps) (*.bmp)"_s);
    if (arquivo.isEmpty()) {
        return;
    }
    // A file that is named as a bitmap and holds no picture is refused by the same words.
    const QImage figura = arquivo.right(4).toLower() == u".bmp" ? core::LeFigura(arquivo) : QImage();
    if (figura.isNull()) {
        ui::MsgBox(u"Formato de arquivo inválido. É somente aceito arquivos com extensão .BMP"_s,
                   ui::Icon::Exclamation);
        return;
    }
    mostra(figura);
}

void frmConfigLogo::Command6_Click()
{
    if (gravaFigura(logo_, core::ArquivoLogo)) {
        ui::MsgBox(u"Gravação efetuada com sucesso!"_s, ui::Icon::Information);
    } else {
        ui::MsgBox(u"Ocorreu um erro na gravação"_s, ui::Icon::Exclamation);
    }
}

void frmConfigLogo::btnVoltar_Click()
{
    Unload();
}

} // namespace shell
