#pragma once

#include "platform/ui/form.h"

#include <QImage>

#include <memory>

namespace Ui
{
class frmConfigLogo;
}

namespace shell
{

/// The logo of the printed forms: shown as it stands, loaded from a bitmap and saved in the size in which it is shown.
class frmConfigLogo : public ui::Form
{
    Q_OBJECT

public:
    frmConfigLogo();
    ~frmConfigLogo() override;

    void Form_Load() override;

private:
    void mostra(const QImage &figura);

    void Command1_Click();
    void Command6_Click();
    void btnVoltar_Click();

    std::unique_ptr<Ui::frmConfigLogo> ui_;
    QImage logo_; ///< what `Picture1` shows
};

} // namespace shell
