#pragma once

#include "platform/ui/form.h"

#include <memory>

namespace Ui
{
class frmManual;
}

namespace shell
{

/// The window of the user's manual, with a search.
class frmManual : public ui::Form
{
    Q_OBJECT

public:
    frmManual();
    ~frmManual() override;

    void Form_Load() override;

    /// Goes to the section of a window; to the top where it has none.
    void mostra(const QString &janela);

private:
    void txtManual_Enter();
    void txtLocalizar_Foco();
    void btnLocalizar_Click();
    void btnNavegador_Click();
    void btnVoltar_Click();

    std::unique_ptr<Ui::frmManual> ui_;
};

/// Opens the manual at the section of a window, or says where it should stand. The splash has no help.
void AbreManual(const QString &janela);

} // namespace shell
