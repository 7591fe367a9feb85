#include "core/figuras.h"

#include "core/caminhos.h"
#include "platform/files/files.h"

namespace core
{

QImage LeFigura(const QString &arquivo)
{
    const QString achado = caminho(arquivo);
    return files::isOrdinary(achado) ? QImage(achado) : QImage();
}

} // namespace core
