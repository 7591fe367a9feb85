#include "registers/painelcadastro.h"

#include "ui_painelcadastro.h"

namespace registers
{

PainelCadastro::PainelCadastro(QWidget *parent) : QWidget(parent), ui_(std::make_unique<Ui::PainelCadastro>())
{
    ui_->setupUi(this);
}

PainelCadastro::~PainelCadastro() = default;

} // namespace registers
