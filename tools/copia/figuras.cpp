#include "tools/copia/figuras.h"

#include "core/caminhos.h"
#include "platform/files/replacefile.h"
#include "tools/copia/lugares.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>

#include <optional>

using namespace Qt::StringLiterals;

namespace copias
{

namespace
{

/// The pictures by their names, as they are read at one go: what is examined is what is written.
using Figuras = QMap<QString, QByteArray>;

const QString nomeDaLista = u"CONFERE.TXT"_s;
const QString copiaNaoFeita = u"A cópia não foi feita. As cópias anteriores continuam onde estão."_s;

QString pastaDasFiguras(const QString &pasta)
{
    return core::caminho(pasta + u"/DADOS"_s);
}

QByteArray leArquivo(const QString &arquivo)
{
    QFile lido(arquivo);
    if (!lido.open(QIODevice::ReadOnly)) {
        throw Erro(u"Não foi possível ler:\n%1\n\nNada foi mudado."_s.arg(mostrado(arquivo)));
    }
    return lido.readAll();
}

Figuras leFiguras(const QString &pasta)
{
    Figuras figuras;
    const QDir dir(pasta);
    for (const QString &nome : dir.entryList({u"*.bmp"_s}, QDir::Files)) {
        figuras.insert(nome, leArquivo(dir.filePath(nome)));
    }
    return figuras;
}

/// One line a picture: what its bytes add up to, and its name.
QByteArray listaDe(const Figuras &figuras)
{
    QByteArray lista;
    for (auto figura = figuras.begin(); figura != figuras.end(); ++figura) {
        lista += QCryptographicHash::hash(figura.value(), QCryptographicHash::Sha256).toHex() + "  " +
                 figura.key().toUtf8() + '\n';
    }
    return lista;
}

bool gravaFiguras(const Figuras &figuras, const QString &pasta)
{
    const QDir dir(pasta);
    for (auto figura = figuras.begin(); figura != figuras.end(); ++figura) {
        if (!files::replaceFile(dir.filePath(figura.key()), figura.value())) {
            return false;
        }
    }
    return true;
}

/// A folder that gets its name when all of it stands in it, and goes where it does not get that far. A file that is
/// held beside it tells others that its maker lives.
class PastaEmPreparo
{
public:
    explicit PastaEmPreparo(const QString &nome) : nome_(nome), sinal_(nome), pasta_(sinal_.name() + u".pasta"_s)
    {
        pronta_ = sinal_.isOpen() && QDir().mkdir(pasta_);
    }
    ~PastaEmPreparo()
    {
        if (pronta_) {
            QDir(pasta_).removeRecursively();
        }
    }
    Q_DISABLE_COPY_MOVE(PastaEmPreparo)

    bool enche(const Figuras &figuras) const
    {
        return pronta_ && gravaFiguras(figuras, pasta_) &&
               files::replaceFile(pasta_ + u'/' + nomeDaLista, listaDe(figuras));
    }

    bool poeNoLugar()
    {
        pronta_ = !QDir().rename(pasta_, nome_);
        return !pronta_;
    }

    const QString &caminho() const { return pasta_; }

private:
    QString nome_;
    files::Draft sinal_;
    QString pasta_;
    bool pronta_ = false;
};

/// The pictures of a copy, where each is as its list says and none is missing.
std::optional<Figuras> figurasConferidas(const QString &copia)
{
    const Figuras figuras = leFiguras(copia);
    QFile lista(copia + u'/' + nomeDaLista);
    if (figuras.isEmpty() || !lista.open(QIODevice::ReadOnly) || lista.readAll() != listaDe(figuras)) {
        return std::nullopt;
    }
    return figuras;
}

bool fazCopia(const Figuras &figuras, const QString &nome)
{
    PastaEmPreparo preparo(nome);
    return preparo.enche(figuras) && figurasConferidas(preparo.caminho()) && preparo.poeNoLugar();
}

/// By the names that stand there, whatever their case.
Figuras comNomesDe(const QString &pasta, const Figuras &figuras)
{
    Figuras renomeadas;
    for (auto figura = figuras.begin(); figura != figuras.end(); ++figura) {
        renomeadas.insert(QFileInfo(core::caminho(pasta + u'/' + figura.key())).fileName(), figura.value());
    }
    return renomeadas;
}

/// What stands in the folder and is about to change.
Figuras queMudam(const Figuras &atuais, const Figuras &novas)
{
    Figuras mudam;
    for (auto atual = atuais.begin(); atual != atuais.end(); ++atual) {
        const auto nova = novas.find(atual.key());
        if (nova != novas.end() && nova.value() != atual.value()) {
            mudam.insert(atual.key(), atual.value());
        }
    }
    return mudam;
}

/// Returns the folder of what was kept, "" where nothing had to be.
QString guarda(const Figuras &figuras, const QString &pasta)
{
    const Especie especie = guardadosDe(pasta + u"/FIGURAS"_s, true);
    limpaRestos(pasta, especie);
    if (figuras.isEmpty()) {
        return {};
    }
    QString guardado = copiaNova(pasta, especie);
    if (!fazCopia(figuras, guardado)) {
        throw Erro(u"Não foi possível guardar as figuras atuais em:\n%1\n\nNenhuma figura foi mudada."_s.arg(
            mostrado(guardado)));
    }
    return guardado;
}

QString quantas(qsizetype figuras)
{
    return figuras == 1 ? u"1 figura"_s : u"%1 figuras"_s.arg(figuras);
}

} // namespace

QString copiaFiguras(const QString &pasta, const QStringList &destinos)
{
    const QString origem = pastaDasFiguras(pasta);
    const Figuras figuras = leFiguras(origem);
    if (figuras.isEmpty()) {
        throw Erro(u"Não há figuras em:\n%1\n\n%2"_s.arg(mostrado(origem), copiaNaoFeita));
    }
    const QString destino = pastaDeDestino(destinos);
    limpaRestos(destino, copiaDasFiguras());
    const QString copia = copiaNova(destino, copiaDasFiguras());
    if (!fazCopia(figuras, copia)) {
        confereQueEsta(destino, copiaNaoFeita);
        throw Erro(u"Não foi possível gravar em:\n%1\nNão há espaço suficiente, o disco está protegido ou não há "
                   "permissão.\n\n%2"_s.arg(mostrado(destino), copiaNaoFeita));
    }
    apagaAsAntigas(copia, copiaDasFiguras());
    return u"A cópia das figuras foi feita e conferida (%1):\n%2"_s.arg(quantas(figuras.size()), mostrado(copia));
}

QString restauraFiguras(const QString &pasta, const QStringList &lugares)
{
    const QString copia = copiaEscolhida(lugares, copiaDasFiguras());
    const std::optional<Figuras> figuras = figurasConferidas(copia);
    if (!figuras) {
        throw Erro(u"A cópia está danificada ou não pode ser lida:\n%1\n\nNenhuma figura foi mudada. Use outra "
                   "cópia."_s.arg(mostrado(copia)));
    }
    const QString destino = pastaDasFiguras(pasta);
    confereQueEsta(destino, u"Nenhuma figura foi mudada."_s);
    const Figuras novas = comNomesDe(destino, *figuras);
    const QString guardado = guarda(queMudam(leFiguras(destino), novas), destino);
    if (!gravaFiguras(novas, destino)) {
        throw Erro(
            u"Não foi possível gravar todas as figuras em:\n%1\nNão há espaço suficiente ou não há permissão.%2"_s.arg(
                mostrado(destino),
                guardado.isEmpty() ? QString() : u"\n\nAs que havia estão em:\n"_s + mostrado(guardado)));
    }
    const QString antes =
        guardado.isEmpty() ? QString() : u"\n\nAs que havia antes foram guardadas em:\n"_s + mostrado(guardado);
    return u"As figuras (%1) foram restauradas da cópia de %2:\n%3%4\n\nElas aparecem quando o Tarvelo for aberto de "
           "novo."_s.arg(QString::number(novas.size()), momentoDaCopia(copia, copiaDasFiguras()), mostrado(copia),
                         antes);
}

} // namespace copias
