#include "tools/importa/relatorio.h"

#include "core/funcoes.h"
#include "platform/files/replacefile.h"
#include "platform/runtime/clock.h"
#include "platform/runtime/error.h"
#include "platform/runtime/runtime.h"
#include "tools/confere/arquivo.h"
#include "tools/confere/conferencia.h"
#include "tools/copia/lugares.h"
#include "tools/importa/explica.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace importa
{

namespace
{

constexpr qsizetype largura = 34; // of the names ahead of the columns of numbers
constexpr qsizetype larguraNumero = 18;
constexpr qsizetype larguraDaPagina = 84;
constexpr qsizetype maiorValor = 60;

QString linhaDe(const QString &nome, const QStringList &numeros)
{
    QString linha = u"  "_s + nome.leftJustified(largura);
    for (const QString &numero : numeros) {
        linha += numero.rightJustified(larguraNumero);
    }
    return linha + u'\n';
}

QString titulo(const QString &texto, const QStringList &colunas = {})
{
    QString linha = texto.leftJustified(colunas.isEmpty() ? 0 : largura + 2);
    for (const QString &coluna : colunas) {
        linha += coluna.rightJustified(larguraNumero);
    }
    return u'\n' + linha + u'\n';
}

QString numero(qint64 n)
{
    return runtime::Format(static_cast<double>(n), u"#,##0");
}

/// As much of both as tells them apart: a difference far behind the cents would look like none.
QStringList valores(double origem, double destino)
{
    constexpr int todosOsAlgarismos = 17;
    QStringList textos{runtime::Format(origem, core::mascaraValor), runtime::Format(destino, core::mascaraValor)};
    if (origem != destino && textos[0] == textos[1]) {
        textos = {QString::number(origem, 'g', todosOsAlgarismos).replace(u'.', u','),
                  QString::number(destino, 'g', todosOsAlgarismos).replace(u'.', u',')};
    }
    return textos;
}

/// "  antes: A, B, C", in as many lines as an editor shows without moving sideways.
QString emLinhas(const QString &antes, const QStringList &nomes)
{
    QString linha = antes + u": "_s;
    QString texto;
    for (qsizetype i = 0; i < nomes.size(); ++i) {
        const QString nome = nomes[i] + (i + 1 < nomes.size() ? u","_s : QString());
        if (linha.size() + nome.size() > larguraDaPagina) {
            texto += linha.trimmed() + u"\n      "_s;
            linha.clear();
        }
        linha += nome + u' ';
    }
    return texto + linha.trimmed();
}

QString partes(const QStringList &linhas, const QString &texto)
{
    return linhas.isEmpty() ? QString() : titulo(texto) + u"  "_s + linhas.join(u"\n  "_s) + u'\n';
}

struct PorQue {
    Motivo motivo;
    QStringView texto;
};

constexpr std::array porques{
    PorQue{Motivo::Desconhecida, u"o Tarvelo não a conhece; com --tudo ela vem junto"},
    PorQue{Motivo::Repetida, u"há outra com o mesmo nome"},
    PorQue{Motivo::SemTipo, u"guarda figuras, bytes ou outro tipo que o banco do Tarvelo não tem"},
    PorQue{Motivo::Ilegivel, u"a definição dela está danificada ou tem um nome impossível"},
    PorQue{Motivo::DeTrabalho, u"é um rascunho dos relatórios, que o Tarvelo não usa"},
};

QString porQue(Motivo motivo)
{
    const auto *const achado =
        std::find_if(porques.begin(), porques.end(), [motivo](const PorQue &um) { return um.motivo == motivo; });
    return achado->texto.toString();
}

struct Sorte {
    Mudanca mudanca;
    QStringView um;
    QStringView varios;
    QStringView sentido;
};

constexpr std::array sortes{
    Sorte{Mudanca::Cortado, u"texto cortado", u"textos cortados", u"não cabe inteiro na coluna"},
    Sorte{Mudanca::Caractere, u"texto mudado", u"textos mudados", u"um sinal pela metade foi trocado"},
    Sorte{Mudanca::Arredondado, u"número arredondado", u"números arredondados", u"tem mais algarismos que a coluna"},
    Sorte{Mudanca::SemLugar, u"valor deixado vazio", u"valores deixados vazios",
          u"número ou data além do que a coluna guarda"},
    Sorte{Mudanca::SemSentido, u"valor deixado vazio", u"valores deixados vazios", u"não é número nem data"},
    Sorte{Mudanca::Ilegivel, u"valor deixado vazio", u"valores deixados vazios",
          u"não pôde ser lido, está danificado na origem"},
};

const Sorte &sorteDe(Mudanca mudanca)
{
    return *std::find_if(sortes.begin(), sortes.end(), [mudanca](const Sorte &uma) { return uma.mudanca == mudanca; });
}

QString encurtado(const QString &valor)
{
    const QString texto = valor.simplified();
    return texto.size() <= maiorValor ? texto : texto.left(maiorValor) + u"..."_s;
}

QString textoDoLugar(const Lugar &lugar)
{
    QString texto = u"      linha "_s + numero(lugar.linha);
    if (lugar.codigo) {
        texto += u", código "_s + confere::TextoDoCodigo(*lugar.codigo);
    }
    return texto + (lugar.valor.isEmpty() ? QString() : u": "_s + encurtado(lugar.valor)) + u'\n';
}

QString textoDaOcorrencia(const Ocorrencia &ocorrencia)
{
    const Sorte &sorte = sorteDe(ocorrencia.mudanca);
    QString texto = u"  %1.%2: %3 (%4)\n"_s.arg(ocorrencia.tabela, ocorrencia.coluna,
                                                Quantos(ocorrencia.quantas, sorte.um, sorte.varios), sorte.sentido);
    for (const Lugar &lugar : ocorrencia.lugares) {
        texto += textoDoLugar(lugar);
    }
    const auto mostradas = static_cast<qint64>(ocorrencia.lugares.size());
    if (ocorrencia.quantas > mostradas) {
        texto += u"      ... e mais %1\n"_s.arg(numero(ocorrencia.quantas - mostradas));
    }
    return texto;
}

QString asTabelas(const Resultado &resultado)
{
    QString texto = titulo(u"Linhas das tabelas"_s, {u"na origem"_s, u"lidas"_s, u"gravadas"_s});
    for (const Tabela &tabela : resultado.tabelas) {
        if (tabela.naOrigem && !tabela.fora) {
            texto += linhaDe(tabela.nome, {numero(tabela.prometidas), numero(tabela.lidas), numero(tabela.gravadas)});
        }
    }
    return texto;
}

QString oQueFicouDeFora(const Resultado &resultado)
{
    QStringList linhas;
    for (const Tabela &tabela : resultado.tabelas) {
        if (tabela.fora) {
            linhas.append(u"Tabela %1 (%2): %3"_s.arg(tabela.nome, Quantos(tabela.prometidas, u"linha", u"linhas"),
                                                      porQue(*tabela.fora)));
        }
        for (const ColunaFora &fora : tabela.colunasFora) {
            linhas.append(u"Coluna %1.%2: %3"_s.arg(tabela.nome, fora.coluna, porQue(fora.motivo)));
        }
    }
    return partes(linhas, u"Ficou de fora"_s);
}

QString oQueVeioAMais(const Resultado &resultado)
{
    QStringList linhas;
    for (const Tabela &tabela : resultado.tabelas) {
        if (!tabela.doPrograma && !tabela.fora) {
            linhas.append(u"Tabela "_s + tabela.nome);
        } else if (!tabela.colunasMantidas.isEmpty()) {
            linhas.append(emLinhas(u"Colunas de "_s + tabela.nome, tabela.colunasMantidas));
        }
    }
    return partes(linhas, u"Veio junto, sem que o Tarvelo o use"_s);
}

QStringList tabelasQueNaoHavia(const Resultado &resultado)
{
    QStringList nomes;
    for (const Tabela &tabela : resultado.tabelas) {
        if (tabela.doPrograma && !tabela.naOrigem) {
            nomes.append(tabela.nome);
        }
    }
    return nomes;
}

QString oQueNaoHavia(const Resultado &resultado)
{
    QStringList linhas;
    if (const QStringList tabelas = tabelasQueNaoHavia(resultado); !tabelas.isEmpty()) {
        linhas.append(emLinhas(u"Tabelas, que foram feitas vazias"_s, tabelas));
    }
    for (const Tabela &tabela : resultado.tabelas) {
        if (!tabela.colunasAusentes.isEmpty()) {
            linhas.append(emLinhas(u"Colunas de "_s + tabela.nome + u", que ficaram vazias"_s, tabela.colunasAusentes));
        }
    }
    return partes(linhas, u"Não havia na origem"_s);
}

QString oQueMudou(const Resultado &resultado)
{
    if (resultado.ocorrencias.empty()) {
        return {};
    }
    QString texto = titulo(u"Mudou ao vir"_s);
    for (const Ocorrencia &ocorrencia : resultado.ocorrencias) {
        texto += textoDaOcorrencia(ocorrencia);
    }
    return texto;
}

QString linhaDaSoma(const Tabela &tabela, const Soma &soma)
{
    const QString nome = tabela.nome + u'.' + soma.coluna;
    if (!soma.origem) {
        return linhaDe(nome, {u"-"_s, runtime::Format(soma.destino, core::mascaraValor)});
    }
    QStringList colunas = valores(*soma.origem, soma.destino);
    if (*soma.origem != soma.destino) {
        colunas.append(u"DIFERENTE"_s);
    }
    return linhaDe(nome, colunas);
}

QString asSomas(const Resultado &resultado)
{
    QString texto;
    for (const Tabela &tabela : resultado.tabelas) {
        for (const Soma &soma : tabela.somas) {
            texto += linhaDaSoma(tabela, soma);
        }
    }
    return texto.isEmpty() ? texto
                           : titulo(u"Somas das colunas de valores"_s, {u"na origem"_s, u"no destino"_s}) + texto;
}

QString linhaDoSaldo(const Saldo &saldo)
{
    QString nome = saldo.tabela;
    if (saldo.porDono) {
        nome += u" (%1, soma)"_s.arg(Quantos(saldo.contas, u"conta", u"contas"));
    }
    QStringList colunas = valores(saldo.origem, saldo.destino);
    if (saldo.diferentes > 0) {
        colunas.append(Quantos(saldo.diferentes, u"DIFERENTE", u"DIFERENTES"));
    }
    return linhaDe(nome, colunas);
}

QString osSaldos(const Resultado &resultado)
{
    if (resultado.saldos.empty()) {
        return {};
    }
    QString texto = titulo(u"Últimos saldos"_s, {u"na origem"_s, u"no destino"_s});
    for (const Saldo &saldo : resultado.saldos) {
        texto += linhaDoSaldo(saldo);
    }
    return texto;
}

QString aConferencia(const Relatorio &relatorio, Achados achados)
{
    if (!relatorio.conferencia) {
        return relatorio.semConferencia.isEmpty()
                   ? QString()
                   : u"\nO banco feito não foi conferido: "_s + relatorio.semConferencia + u'\n';
    }
    const bool todos = achados == Achados::Todos;
    const QStringView asOutras = todos ? u"tarvelo-confere --tudo mostra todos" : u"estão no arquivo do relatório";
    return u'\n' + confere::Texto(*relatorio.conferencia, todos, asOutras);
}

/// The first line that somebody reads, and often the only one.
QString oResultado(const Resultado &resultado)
{
    const qsizetype faltam = tabelasQueNaoHavia(resultado).size();
    const QString faltavam =
        faltam > 0 ? u" O arquivo de origem não tinha %1 do Tarvelo."_s.arg(Quantos(faltam, u"tabela", u"tabelas"))
                   : QString();
    if (resultado.tudoVeio()) {
        return u"Resultado: tudo veio, como estava."_s + faltavam + u'\n';
    }
    const bool comSaldos = std::any_of(resultado.saldos.begin(), resultado.saldos.end(),
                                       [](const Saldo &saldo) { return saldo.diferentes > 0; });
    return u"Resultado: os dados vieram, mas nem tudo como estava."_s + faltavam +
           u"\nLeia abaixo o que ficou de fora ou mudou%1.\n"_s.arg(comSaldos ? u", e os saldos"_s : QString());
}

QString cabecalho(const Relatorio &relatorio)
{
    QString texto = u"Importação de  %1\n         para  %2\n           em  %3\n\n"_s.arg(
        copias::mostrado(QFileInfo(relatorio.origem).absoluteFilePath()),
        copias::mostrado(QFileInfo(relatorio.destino).absoluteFilePath()),
        runtime::Format(runtime::Now(), core::mascaraDataHora));
    texto += oResultado(relatorio.resultado);
    if (!relatorio.resultado.guardado.isEmpty()) {
        texto += u"O banco que estava no destino foi guardado em:\n"_s +
                 copias::mostrado(relatorio.resultado.guardado) + u'\n';
    }
    return texto;
}

} // namespace

Relatorio RelatorioDe(const Pedido &pedido, Resultado resultado)
{
    Relatorio relatorio{.origem = pedido.origem, .destino = pedido.destino, .resultado = std::move(resultado)};
    if (relatorio.resultado.postais) {
        return relatorio;
    }
    try {
        relatorio.conferencia = confere::Confere(QFileInfo(pedido.destino).absoluteFilePath());
    } catch (const runtime::RuntimeError &erro) {
        relatorio.semConferencia = erro.description();
    }
    return relatorio;
}

QString ArquivoDoRelatorio(const QString &destino)
{
    const QFileInfo arquivo(destino);
    return arquivo.absoluteDir().filePath(arquivo.completeBaseName() + u"-importacao.txt"_s);
}

QString Texto(const Relatorio &relatorio, Achados achados)
{
    const Resultado &resultado = relatorio.resultado;
    return cabecalho(relatorio) + asTabelas(resultado) + oQueFicouDeFora(resultado) + oQueMudou(resultado) +
           oQueVeioAMais(resultado) + oQueNaoHavia(resultado) + osSaldos(resultado) + asSomas(resultado) +
           aConferencia(relatorio, achados);
}

bool GravaRelatorio(const Relatorio &relatorio)
{
    QString texto = QChar::ByteOrderMark + Texto(relatorio, Achados::Todos);
    texto.replace(u"\n"_s, u"\r\n"_s);
    const QString arquivo = ArquivoDoRelatorio(relatorio.destino);
    files::clearLeftovers(arquivo);
    return files::replaceFile(arquivo, texto.toUtf8());
}

} // namespace importa
