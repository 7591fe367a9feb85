#include "tools/importa/explica.h"

#include "platform/runtime/runtime.h"
#include "tools/copia/lugares.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace importa
{

namespace
{

/// The file that a sentence names.
enum class Qual { Nenhum, Origem, Destino, PastaDoDestino };

struct Frase {
    Falha falha;
    Qual qual;
    QStringView oQue;
    QStringView conselho = {};
};

constexpr auto outraCopia = u"Use outra cópia dele, ou peça a quem cuida do sistema antigo que o compacte e repare.";

constexpr std::array frases{
    Frase{Falha::OrigemAusente, Qual::Origem, u"Não foi possível encontrar o arquivo de origem",
          u"Confira o nome e a pasta."},
    Frase{Falha::OrigemNaoEArquivo, Qual::Origem, u"A origem não é um arquivo",
          u"Diga o arquivo .MDB do sistema antigo, e não a pasta dele."},
    Frase{Falha::OrigemSemPermissao, Qual::Origem, u"O seu usuário não pode ler o arquivo de origem",
          u"Peça a permissão, ou faça uma cópia dele em uma pasta sua."},
    Frase{
        Falha::NaoEJet, Qual::Origem, u"O arquivo de origem não é um banco de dados Jet (.MDB)",
        u"Confira se é o arquivo em que o sistema antigo guarda os dados. Um banco que o Tarvelo fez já está pronto."},
    Frase{Falha::Jet3, Qual::Origem, u"O arquivo de origem está no formato Jet 3, que este programa não lê",
          u"Peça a quem cuida do sistema antigo uma cópia no formato Jet 4, o dos anos 2000 a 2003."},
    Frase{Falha::FormatoPosterior, Qual::Origem,
          u"O arquivo de origem está em um formato mais novo que o Jet 4, que este programa não lê",
          u"Peça a quem cuida do sistema antigo uma cópia em .MDB, no formato dos anos 2000 a 2003."},
    Frase{Falha::ComSenha, Qual::Origem, u"O arquivo de origem tem uma senha",
          u"Peça a quem cuida do sistema antigo uma cópia sem a senha do banco de dados."},
    Frase{Falha::Criptografada, Qual::Origem, u"O arquivo de origem está criptografado",
          u"Peça a quem cuida do sistema antigo uma cópia sem criptografia."},
    Frase{Falha::Truncada, Qual::Origem, u"O arquivo de origem está incompleto",
          u"Copie-o de novo, com o sistema antigo fechado."},
    Frase{Falha::CatalogoDanificado, Qual::Origem,
          u"O arquivo de origem está danificado, e a lista das suas tabelas não pode ser lida", outraCopia},
    Frase{Falha::TabelaDanificada, Qual::Origem, u"O arquivo de origem está danificado", outraCopia},
    Frase{Falha::LeituraNaoTermina, Qual::Origem, u"O arquivo de origem está danificado, e a leitura dele não acaba",
          outraCopia},
    Frase{Falha::SemTabelas, Qual::Origem, u"O arquivo de origem não tem nenhuma das tabelas da oficina, nem CEPs",
          u"Confira se é o arquivo em que o sistema antigo guarda os dados."},
    Frase{Falha::LeitorNaoIniciou, Qual::Nenhum,
          u"A parte do programa que lê o arquivo de origem não pôde ser iniciada",
          u"Tente de novo; se não resolver, instale o Tarvelo outra vez."},
    Frase{Falha::MesmoArquivo, Qual::Destino, u"A origem e o destino são o mesmo arquivo",
          u"Diga outro nome para o destino."},
    Frase{Falha::DestinoNaoEArquivo, Qual::Destino, u"O destino não é um arquivo",
          u"Diga também o nome do arquivo a fazer, como DADOS.MDB."},
    Frase{Falha::DestinoComDados, Qual::Destino, u"O destino já tem dados",
          u"Diga outro nome para o destino, ou --substitui: o novo toma o lugar dele, e o de hoje é guardado ao lado."},
    Frase{Falha::DestinoEmUso, Qual::Destino, u"O destino está em uso",
          u"Feche o Tarvelo em todos os computadores e tente de novo."},
    Frase{Falha::DestinoSemPasta, Qual::PastaDoDestino, u"A pasta do destino não existe", u"Confira o nome dela."},
    Frase{Falha::DestinoSemPermissao, Qual::Destino, u"Não foi possível gravar o destino",
          u"O disco está protegido, o seu usuário não tem permissão ou outro programa está usando o arquivo."},
    Frase{Falha::DiscoCheio, Qual::PastaDoDestino, u"Não há espaço suficiente no disco",
          u"Esvazie-o, ou diga um destino em outro disco."},
    Frase{Falha::Interrompida, Qual::Nenhum, u"A importação foi interrompida"},
};

QString arquivoDe(Qual qual, const Pedido &pedido)
{
    switch (qual) {
    case Qual::Origem:
        return copias::mostrado(QFileInfo(pedido.origem).absoluteFilePath());
    case Qual::Destino:
        return copias::mostrado(QFileInfo(pedido.destino).absoluteFilePath());
    case Qual::PastaDoDestino:
        return copias::mostrado(QFileInfo(pedido.destino).absolutePath());
    case Qual::Nenhum:
        break;
    }
    return {};
}

/// What only this time can be told.
QString emQueTabela(const Erro &erro)
{
    const Erro::Dados &dados = erro.dados();
    if (dados.tabela.isEmpty()) {
        return {};
    }
    if (erro.falha() != Falha::TabelaDanificada) {
        return u" (tabela '%1')"_s.arg(dados.tabela);
    }
    if (dados.lidas == dados.prometidas) {
        return u": a tabela '%1' não pode ser lida inteira"_s.arg(dados.tabela);
    }
    return u": a tabela '%1' diz que tem %2, e %3"_s.arg(dados.tabela, Quantos(dados.prometidas, u"linha", u"linhas"),
                                                         Quantos(dados.lidas, u"pôde ser lida", u"puderam ser lidas"));
}

QString razaoDe(const Erro &erro, const Pedido &pedido)
{
    const auto *const frase =
        std::find_if(frases.begin(), frases.end(), [&erro](const Frase &uma) { return uma.falha == erro.falha(); });
    if (frase == frases.end()) {
        return erro.dados().detalhe;
    }
    const QString arquivo = arquivoDe(frase->qual, pedido);
    QString texto = frase->oQue + emQueTabela(erro) + (arquivo.isEmpty() ? u"."_s : u":\n"_s + arquivo);
    if (!frase->conselho.isEmpty()) {
        texto += u'\n' + frase->conselho.toString();
    }
    return texto;
}

} // namespace

QString Quantos(qint64 n, QStringView um, QStringView varios)
{
    return runtime::Format(static_cast<double>(n), u"#,##0") + u' ' + (n == 1 ? um : varios).toString();
}

QString Explica(const Erro &erro, const Pedido &pedido)
{
    return razaoDe(erro, pedido) + u"\n\nNada foi importado, e o destino continua como estava."_s;
}

} // namespace importa
