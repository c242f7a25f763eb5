// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The state behind the uninstall screen: the applications, the one chosen,
// what it leaves behind, and the uninstall. The slow steps run on workers;
// their results are applied here, on the main thread.

#include "desinstalador/desinstalador.h"
#include "estado/modelos.h"
#include "nucleo/entorno.h"

#include <QObject>
#include <QUrl>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class EstadoApps : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ModeloApps* apps READ modeloApps CONSTANT)
    Q_PROPERTY(bool cargando READ cargando NOTIFY cargandoChanged)
    // The chosen application as {nombre, version, bundleID, tamano, deRoot, ruta}, or null.
    Q_PROPERTY(QVariant elegida READ elegidaMapa NOTIFY elegidaChanged)
    // Its leftovers, largest first; a screen may untick some.
    Q_PROPERTY(ModeloElementos* restos READ modeloRestos CONSTANT)
    Q_PROPERTY(bool buscandoRestos READ buscandoRestos NOTIFY buscandoRestosChanged)
    Q_PROPERTY(bool trabajando READ trabajando NOTIFY trabajandoChanged)
    // {app, borrado, enPapelera, errores} of the last uninstall, or null.
    Q_PROPERTY(QVariant resultado READ resultadoMapa NOTIFY resultadoChanged)

public:
    explicit EstadoApps(QObject* padre = nullptr);
    explicit EstadoApps(Entorno entorno, QObject* padre = nullptr);

    // Builds the list once, then measures the applications (tamanosMedidos).
    Q_INVOKABLE void cargar();
    // Chooses the application of that row and looks for its leftovers.
    Q_INVOKABLE void elegir(int fila);
    void elegir(const AppInstalada& app);
    // A bundle dropped on the window: chosen, and added to the list if new.
    Q_INVOKABLE void recibir(const QUrl& url);
    void recibir(const std::filesystem::path& ruta);
    // Moves the chosen application and its ticked leftovers to the Trash.
    Q_INVOKABLE void desinstalar();
    // Whether the application of that row is running now.
    Q_INVOKABLE bool estaAbierta(int fila) const;
    bool estaAbierta(const AppInstalada& app) const;

    const std::vector<AppInstalada>& apps() const { return apps_; }
    const std::optional<AppInstalada>& elegida() const { return elegida_; }
    const std::vector<Elemento>& restos() const { return restos_; }
    const std::optional<std::pair<std::string, Resultado>>& resultado() const { return resultado_; }
    bool cargando() const { return cargando_; }
    bool buscandoRestos() const { return buscandoRestos_; }
    bool trabajando() const { return trabajando_; }

    ModeloApps* modeloApps() const { return modeloApps_; }
    ModeloElementos* modeloRestos() const { return modeloRestos_; }
    QVariant elegidaMapa() const;
    QVariant resultadoMapa() const;

Q_SIGNALS:
    void cargandoChanged();
    void elegidaChanged();
    void buscandoRestosChanged();
    void trabajandoChanged();
    void resultadoChanged();
    // The sizes of the list have been written.
    void tamanosMedidos();

private:
    void ponerResultado(std::optional<std::pair<std::string, Resultado>> r);
    void ponerBuscando(bool v);
    void ponerRestos(std::vector<Elemento> r);
    void medirApps();

    const Entorno entorno_;
    std::vector<AppInstalada> apps_;
    bool cargando_ = false;
    std::optional<AppInstalada> elegida_;
    std::vector<Elemento> restos_;
    bool buscandoRestos_ = false;
    bool trabajando_ = false;
    std::optional<std::pair<std::string, Resultado>> resultado_;
    ModeloApps* modeloApps_;
    ModeloElementos* modeloRestos_;
};
