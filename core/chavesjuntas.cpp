#include "core/chavesjuntas.h"

#include "core/caminhos.h"
#include "core/embaralha.h"
#include "core/modulo.h"
#include "platform/ini/profile.h"

namespace core
{

void GravaJuntas(const QString &secao, const std::vector<std::pair<QString, QString>> &chaves)
{
    auto embaralhadas = chaves;
    for (auto &[chave, valor] : embaralhadas) {
        valor = Embaralha(valor);
    }
    ini::writeProfileKeys(secao, embaralhadas, caminho(ArquivoINI));
}

} // namespace core
