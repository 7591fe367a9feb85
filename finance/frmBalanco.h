#pragma once

#include "finance/balanco.h"
#include "platform/ui/form.h"

#include <memory>

namespace Ui
{
class frmBalanco;
}

namespace finance
{

/// The general balance of a period, one line a subject, and the total of the lines that are checked. The labels are the
/// data: the total is computed from what they show, and a line that is taken out needs no new query.
class frmBalanco : public ui::Form
{
    Q_OBJECT

public:
    frmBalanco();
    ~frmBalanco() override;

    void Form_Load() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void btnPreenche_Click();
    void btnCalcular_Click();
    void btnVoltar_Click();
    void lblTotal_Change(int figura);

    LinhaDoBalanco figurasDe(int linha) const;
    void mostra(const QString &linha, const LinhaDoBalanco &figuras);

    std::unique_ptr<Ui::frmBalanco> ui_;
};

} // namespace finance
