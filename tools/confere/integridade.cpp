#include "core/esquema.h"
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

/// The table of the origin book comes with its customisation alone.
constexpr QStringView soPersonalizada = u"LivroOrigem";

/// A file that has the operators alone is that of a first start, whose other tables come behind the login.
void confereTabelas(Banco &banco, Achados &achados)
{
    QStringList faltam;
    for (const QString &tabela : core::TabelasDoPrograma()) {
        if (tabela == soPersonalizada) {
            continue;
        }
        achados.conta();
        if (!banco.tem(tabela)) {
            faltam.append(tabela);
        }
    }
    if (faltam.size() + 1 == achados.contadas() && banco.tem(u"Senha")) {
        return;
    }
    for (const QString &tabela : faltam) {
        achados.acha(u"O arquivo não tem a tabela %1, que o Tarvelo cria vazia quando o abre."_s.arg(tabela));
    }
}

} // namespace

std::vector<Conferencia> ConferenciasDoArquivo()
{
    return {{.nome = u"Integridade do arquivo"_s,
             .pergunta = u"as páginas, as linhas e os índices do arquivo estão inteiros"_s,
             .confere = confereArquivo,
             .oQueConta = u"tabela"},
            {.nome = u"Tabelas do programa"_s,
             .pergunta = u"o arquivo tem todas as tabelas (um de um programa mais antigo pode não ter)"_s,
             .nivel = Nivel::Aviso,
             .confere = confereTabelas,
             .oQueConta = u"tabela"}};
}

} // namespace confere
