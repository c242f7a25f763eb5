// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The state behind the disk map: the measurement and its cancel, the tree and
// the folder shown, the selection, and the move of one node to the Trash with
// the tree corrected in place. Main thread only, but for the cancel flag.

#include "mapa/cerrojos.h"
#include "mapa/nodo.h"
#include "nucleo/entorno.h"

#include <QObject>
#include <QStringList>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

// A node of the tree as the screens hold it: a handle that reads the node's
// fields when asked. The default one stands for none.
class Nodo {
    Q_GADGET
    QML_VALUE_TYPE(nodo)
    Q_PROPERTY(bool valido READ valido)
    Q_PROPERTY(QString id READ id)
    Q_PROPERTY(QString nombre READ nombre)
    Q_PROPERTY(QString ruta READ ruta)
    Q_PROPERTY(qint64 tamano READ tamano)
    Q_PROPERTY(qint64 resto READ resto)
    Q_PROPERTY(bool esCarpeta READ esCarpeta)
    Q_PROPERTY(bool protegido READ protegido)
    // The children that kept a node, largest first, as handles.
    Q_PROPERTY(QVariantList hijos READ hijos)

public:
    Nodo() = default;
    explicit Nodo(std::shared_ptr<NodoDisco> n) : nodo(std::move(n)) {}

    bool valido() const { return nodo != nullptr; }
    QString id() const;
    QString nombre() const;
    QString ruta() const;
    qint64 tamano() const { return nodo ? nodo->tamano : 0; }
    qint64 resto() const { return nodo ? nodo->resto : 0; }
    bool esCarpeta() const { return nodo && nodo->esCarpeta; }
    bool protegido() const { return nodo && nodo->protegido; }
    QVariantList hijos() const;
    bool operator==(const Nodo& o) const { return nodo == o.nodo; }

    std::shared_ptr<NodoDisco> nodo;
};

class EstadoMapa : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Nodo raiz READ raizNodo NOTIFY raizChanged)
    Q_PROPERTY(Nodo actual READ actualNodo NOTIFY actualChanged)
    Q_PROPERTY(Nodo seleccion READ seleccionNodo WRITE seleccionar NOTIFY seleccionChanged)
    // From the root to actual.
    Q_PROPERTY(QVariantList camino READ caminoLista NOTIFY actualChanged)
    Q_PROPERTY(bool midiendo READ midiendo NOTIFY midiendoChanged)
    // Whole percent of the running measurement.
    Q_PROPERTY(qint64 progreso READ progreso NOTIFY progresoChanged)
    Q_PROPERTY(QStringList protegidas READ protegidasLista NOTIFY protegidasChanged)
    // The message of the last failed move, else empty.
    Q_PROPERTY(QString aviso READ avisoTexto NOTIFY avisoChanged)
    // Grows with each change of the tree, which its nodes don't announce.
    Q_PROPERTY(qint64 version READ version NOTIFY versionChanged)

public:
    explicit EstadoMapa(QObject* padre = nullptr);
    explicit EstadoMapa(Entorno entorno, QObject* padre = nullptr);

    // Measures the home folder; the old map stays until the new one is ready.
    // medicionTerminada when it has ended, cancelled or not.
    Q_INVOKABLE void medir();
    // Cancels the running measurement; its result is then dropped.
    Q_INVOKABLE void detener();
    // Opens a folder that has children; anything else changes nothing.
    Q_INVOKABLE void entrar(const Nodo& nodo);
    void seleccionar(const Nodo& nodo);
    Q_INVOKABLE QString relativa(const Nodo& nodo) const;
    // Why the node may not be moved; empty when it may.
    Q_INVOKABLE QString impedimento(const Nodo& nodo) const;
    // What to warn of before the move; empty when nothing.
    Q_INVOKABLE QString advertencia(const Nodo& nodo) const;
    Q_INVOKABLE void moverAPapelera(const Nodo& nodo);

    std::string relativa(const NodoDisco& nodo) const;
    std::optional<std::string> impedimento(const NodoDisco& nodo) const;
    std::optional<std::string> advertencia(const NodoDisco& nodo) const;

    const std::shared_ptr<NodoDisco>& raiz() const { return raiz_.nodo; }
    const std::shared_ptr<NodoDisco>& actual() const { return actual_.nodo; }
    const std::shared_ptr<NodoDisco>& seleccion() const { return seleccion_.nodo; }
    std::vector<std::shared_ptr<NodoDisco>> camino() const;
    const std::optional<std::string>& aviso() const { return aviso_; }
    const std::vector<std::string>& protegidas() const { return protegidas_; }

    Nodo raizNodo() const { return raiz_; }
    Nodo actualNodo() const { return actual_; }
    Nodo seleccionNodo() const { return seleccion_; }
    QVariantList caminoLista() const;
    bool midiendo() const { return midiendo_; }
    qint64 progreso() const { return progreso_; }
    QStringList protegidasLista() const;
    QString avisoTexto() const;
    qint64 version() const { return version_; }

Q_SIGNALS:
    void raizChanged();
    void actualChanged();
    void seleccionChanged();
    void midiendoChanged();
    void progresoChanged();
    void protegidasChanged();
    void avisoChanged();
    void versionChanged();
    void medicionTerminada();

private:
    void ponerProgreso(int64_t p);
    void ponerAviso(std::optional<std::string> a);

    const Entorno entorno_;
    const std::shared_ptr<Bandera> cancelar_ = std::make_shared<Bandera>();
    Nodo raiz_;
    Nodo actual_;
    Nodo seleccion_;
    bool midiendo_ = false;
    int64_t progreso_ = 0;
    std::vector<std::string> protegidas_;
    std::optional<std::string> aviso_;
    int64_t version_ = 0;
};
