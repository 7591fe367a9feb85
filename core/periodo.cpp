#include "core/periodo.h"

#include "core/funcoes.h"
#include "platform/runtime/runtime.h"
#include "platform/ui/controls.h"

namespace core
{

using namespace Qt::StringLiterals;
using runtime::DateAdd;

namespace
{

constexpr int intervalo = 4; ///< of `DataSQL`

ui::DTPicker &data(const QWidget &janela, const QString &nome)
{
    auto *achada = janela.findChild<ui::DTPicker *>(nome);
    Q_ASSERT_X(achada, "Periodo", qPrintable(nome));
    return *achada;
}

QString textoDe(const QWidget &janela, const QString &nome)
{
    return data(janela, nome).date().toString(u"dd/MM/yyyy"_s);
}

} // namespace

void AbrePeriodo(const QWidget &janela, const Periodo &periodo)
{
    const auto deHoje = [](int meses, int dias) {
        return runtime::toDateTime(DateAdd(u"d", dias, DateAdd(u"m", meses, runtime::Today()))).date();
    };
    data(janela, u"txtDataInicio"_s).setDate(deHoje(-periodo.mesesAntes, -periodo.diasAntes));
    data(janela, u"txtDataFim"_s).setDate(deHoje(periodo.mesesDepois, periodo.diasDepois));
}

QString PeriodoSQL(const QWidget &janela)
{
    return DataSQL(textoDe(janela, u"txtDataInicio"_s), intervalo, textoDe(janela, u"txtDataFim"_s));
}

} // namespace core
