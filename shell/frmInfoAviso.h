#pragma once

#include "platform/ui/form.h"
#include "shell/vencimentos.h"

#include <memory>

namespace Ui
{
class frmInfoAviso;
}

namespace shell
{

/// The notices: accounts and cheques that fall due around today, and every customer in debt. Its lists are filled at
/// load and by `Command1`, for the period that stands in the caption.
class frmInfoAviso : public ui::Form
{
    Q_OBJECT

public:
    frmInfoAviso();
    ~frmInfoAviso() override;

    void Form_Load() override;

private:
    void Command1_Click();
    void btnVoltar_Click();

    void encheDevedores();

    std::unique_ptr<Ui::frmInfoAviso> ui_;
    PeriodoDosAvisos periodo_;
};

} // namespace shell
