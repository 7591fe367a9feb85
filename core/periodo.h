#pragma once

#include <QString>

class QWidget;

/// The period of a window: its date pickers txtDataInicio and txtDataFim.
namespace core
{

/// What the pickers show at load, from the present day.
struct Periodo {
    int mesesAntes = 0;
    int diasAntes = 0;
    int diasDepois = 0;
    int mesesDepois = 0;
};
void AbrePeriodo(const QWidget &janela, const Periodo &periodo);

/// The two dates as they follow BETWEEN.
QString PeriodoSQL(const QWidget &janela);

} // namespace core
