#pragma once

#include <QWidget>

#include <memory>

namespace Ui
{
class PainelCadastro;
}

namespace registers
{

/// What every register has below its fields: the commands, the search line and the list.
class PainelCadastro : public QWidget
{
    Q_OBJECT

public:
    explicit PainelCadastro(QWidget *parent = nullptr);
    ~PainelCadastro() override;

    const Ui::PainelCadastro &controles() const { return *ui_; }

private:
    std::unique_ptr<Ui::PainelCadastro> ui_;
};

} // namespace registers
