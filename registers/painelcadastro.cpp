#include "registers/painelcadastro.h"

#include "ui_painelcadastro.h"

#include "platform/ui/controls.h"

namespace registers
{

using namespace Qt::StringLiterals;

PainelCadastro::PainelCadastro(QWidget *parent) : QWidget(parent), ui_(std::make_unique<Ui::PainelCadastro>())
{
    ui_->setupUi(this);
    ui_->btnIncluir->setIcon(ui::icon(u"document-new"_s));
    ui_->btnAlterar->setIcon(ui::icon(u"document-edit"_s));
    ui_->btnExcluir->setIcon(ui::icon(u"edit-delete"_s));
    ui_->btnCancelar->setIcon(ui::icon(u"edit-clear"_s));
    ui_->btnVoltar->setIcon(ui::icon(u"go-previous"_s));
    ui_->btnPesquisar->setIcon(ui::icon(u"edit-find"_s));
    ui_->btnLocalizar->setIcon(ui::icon(u"crosshairs"_s));
    ui_->btnTodos->setIcon(ui::icon(u"view-list-details"_s));
}

PainelCadastro::~PainelCadastro() = default;

} // namespace registers
