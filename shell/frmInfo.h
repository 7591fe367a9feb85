#pragma once

#include "platform/ui/form.h"

#include <memory>

namespace Ui
{
class frmInfo;
}

namespace shell
{

/// The about box.
class frmInfo : public ui::Form
{
    Q_OBJECT

public:
    frmInfo();
    ~frmInfo() override;

    void Form_Load() override;

private:
    void cmdOK_Click();
    void cmdSysInfo_Click();

    std::unique_ptr<Ui::frmInfo> ui_;
};

} // namespace shell
