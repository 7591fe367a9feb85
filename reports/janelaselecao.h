#pragma once

#include "core/periodo.h"
#include "platform/ui/form.h"

class QAbstractButton;

namespace reports
{

/// A window that asks what a report is to show: its caption, what its period starts at, and the report's mode.
struct Selecao {
    QStringView janela;
    QStringView titulo; ///< tail of the caption
    core::Periodo periodo;
    qint16 modo;
};

/// The window that a `Selecao` tells. btnPreenche shows the report, filled anew; the window stays open behind it, as
/// the report reads its boxes again for every print.
class JanelaSelecao : public ui::Form
{
    Q_OBJECT

public:
    void Form_Load() override;

protected:
    explicit JanelaSelecao(const Selecao &selecao);

    /// Connects the two buttons. Once, behind `setupUi`.
    void liga(QAbstractButton *btnPreenche, QAbstractButton *btnVoltar);

    virtual void btnPreenche_Click();

private:
    void btnVoltar_Click();

    const Selecao &selecao_;
};

/// A selection window that its table tells whole: its layout `Controles` is a class made from a .ui file.
template<class Controles>
class SelecaoSimples : public JanelaSelecao
{
public:
    explicit SelecaoSimples(const Selecao &selecao) : JanelaSelecao(selecao)
    {
        controles_.setupUi(this);
        liga(controles_.btnPreenche, controles_.btnVoltar);
    }

private:
    Controles controles_;
};

} // namespace reports
