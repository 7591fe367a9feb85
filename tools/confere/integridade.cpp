#include "tools/confere/conferencia.h"

using namespace Qt::StringLiterals;

namespace confere
{

namespace
{

void confereArquivo(Banco &banco, Achados &achados)
{
    for (size_t i = 0; i < banco.tabelas().size(); ++i) {
        achados.conta();
    }
    for (const QString &falha : banco.falhas()) {
        achados.acha(u"O arquivo está danificado (%1)."_s.arg(falha.simplified()));
    }
}

} // namespace

std::vector<Conferencia> ConferenciasDoArquivo()
{
    return {{.nome = u"Integridade do arquivo"_s,
             .pergunta = u"as páginas, as linhas e os índices do arquivo estão inteiros"_s,
             .confere = confereArquivo,
             .oQueConta = u"tabela"}};
}

} // namespace confere
