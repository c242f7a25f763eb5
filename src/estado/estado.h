// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The analysis and cleaning cycle of the application: the phase, the
// categories with the user's selection, the last result and the disk figures.
// Lives on the main thread for the life of the program; the engines run on
// workers with copies and their results come back here.

#include "estado/modelos.h"
#include "nucleo/entorno.h"
#include "nucleo/modelo.h"
#include "plataforma/sistema.h"

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

#include <chrono>
#include <optional>
#include <set>
#include <string>
#include <vector>

struct Fase {
    enum class Tipo { inicio, trabajando, listo };
    Tipo tipo = Tipo::inicio;
    // The progress line, while trabajando.
    std::string texto;
    bool operator==(const Fase&) const = default;
};

// Whether the program opens at login, by the session's own record of it.
namespace InicioSesion {
bool activo();
// A failure goes to the system log and nowhere else.
void cambiar(bool activo);
} // namespace InicioSesion

class Estado : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Lo crea la aplicación")
    // 0 inicio, 1 trabajando, 2 listo.
    Q_PROPERTY(int etapa READ etapa NOTIFY faseChanged)
    Q_PROPERTY(bool estaTrabajando READ estaTrabajando NOTIFY faseChanged)
    // The progress line while trabajando, else empty.
    Q_PROPERTY(QString progreso READ progreso NOTIFY faseChanged)
    Q_PROPERTY(ModeloCategorias* categorias READ modeloCategorias CONSTANT)
    // {borrado, enPapelera, errores, libreAntes, libreDespues}, or null.
    Q_PROPERTY(QVariant resultado READ resultadoMapa NOTIFY resultadoChanged)
    Q_PROPERTY(qint64 libre READ libre NOTIFY discoChanged)
    Q_PROPERTY(qint64 total READ total NOTIFY discoChanged)
    // The error of the last emptying of the Trash, else empty.
    Q_PROPERTY(QString avisoPapelera READ avisoPapeleraTexto NOTIFY avisoPapeleraChanged)
    Q_PROPERTY(bool abrirAlIniciar READ abrirAlIniciar NOTIFY abrirAlIniciarChanged)
    Q_PROPERTY(QStringList sugeridas READ sugeridasLista NOTIFY sugeridasChanged)
    Q_PROPERTY(int analisisID READ analisisID NOTIFY analisisIDChanged)
    Q_PROPERTY(int limpiezas READ limpiezas NOTIFY limpiezasChanged)
    Q_PROPERTY(qint64 seleccionado READ seleccionado NOTIFY seleccionChanged)
    Q_PROPERTY(qint64 aBorrar READ aBorrar NOTIFY seleccionChanged)
    Q_PROPERTY(qint64 aPapelera READ aPapelera NOTIFY seleccionChanged)
    Q_PROPERTY(QStringList appsAbiertasSeleccionadas READ appsAbiertasSeleccionadasLista NOTIFY seleccionChanged)
    // Test mode: everything happens in a scratch home.
    Q_PROPERTY(bool modoPrueba READ modoPrueba CONSTANT)

public:
    // The first check of free space comes `primera` after creation, then one
    // every `periodo`.
    explicit Estado(Entorno entorno = Entorno::actual(), std::chrono::milliseconds primera = std::chrono::seconds(5),
                    std::chrono::milliseconds periodo = std::chrono::seconds(60), QObject* padre = nullptr);

    // Starts an analysis; analisisTerminado when it has ended.
    Q_INVOKABLE void analizar();
    // Cleans what is selected, then analyses again; limpiezaTerminada at the end.
    Q_INVOKABLE void limpiar();
    // papeleraVaciada when done.
    Q_INVOKABLE void vaciarLaPapelera();
    // New disk figures, handed to the low-space notice.
    Q_INVOKABLE void revisarEspacio();
    // Marks the items that open applications use now; the ticks stay.
    Q_INVOKABLE void refrescarAppsAbiertas();
    Q_INVOKABLE void cambiarInicioSesion(bool activo);

    // A progress text, on the main thread: shown while trabajando, dropped
    // otherwise, so that a late one can't turn a finished phase back.
    void recibirProgreso(const std::string& texto);

    // Ticks an item as a screen row does.
    bool marcar(size_t categoria, size_t elemento, bool seleccionado);

    const Entorno& entorno() const { return entorno_; }
    const Fase& fase() const { return fase_; }
    const std::vector<Categoria>& categorias() const { return categorias_; }
    const std::optional<Resultado>& resultado() const { return resultado_; }
    plataforma::EspacioDisco disco() const { return disco_; }
    const std::optional<std::string>& avisoPapelera() const { return avisoPapelera_; }
    const std::set<std::string>& sugeridas() const { return sugeridas_; }
    std::vector<std::string> appsAbiertasSeleccionadas() const;

    int etapa() const { return int(fase_.tipo); }
    bool estaTrabajando() const { return fase_.tipo == Fase::Tipo::trabajando; }
    QString progreso() const;
    ModeloCategorias* modeloCategorias() const { return modelo_; }
    QVariant resultadoMapa() const;
    qint64 libre() const { return disco_.libre; }
    qint64 total() const { return disco_.total; }
    QString avisoPapeleraTexto() const;
    bool abrirAlIniciar() const { return abrirAlIniciar_; }
    QStringList sugeridasLista() const;
    int analisisID() const { return analisisID_; }
    int limpiezas() const { return limpiezas_; }
    int64_t seleccionado() const { return seleccionadoEn(std::nullopt); }
    int64_t aBorrar() const { return seleccionadoEn(Modo::borrar); }
    int64_t aPapelera() const { return seleccionadoEn(Modo::papelera); }
    QStringList appsAbiertasSeleccionadasLista() const;
    bool modoPrueba() const { return entorno_.prueba; }

Q_SIGNALS:
    void faseChanged();
    void resultadoChanged();
    void discoChanged();
    void avisoPapeleraChanged();
    void abrirAlIniciarChanged();
    void sugeridasChanged();
    void analisisIDChanged();
    void limpiezasChanged();
    void seleccionChanged();
    void analisisTerminado();
    void limpiezaTerminada();
    void papeleraVaciada();

private:
    // The selected bytes of the categories of that mode, or of all.
    int64_t seleccionadoEn(std::optional<Modo> modo) const;
    void ponerFase(Fase fase);
    void ponerDisco(plataforma::EspacioDisco disco);
    // The analysis, then `despues` on the main thread.
    void analizarY(std::function<void()> despues);

    const Entorno entorno_;
    Fase fase_;
    std::vector<Categoria> categorias_;
    ModeloCategorias* modelo_;
    std::optional<Resultado> resultado_;
    plataforma::EspacioDisco disco_;
    std::optional<std::string> avisoPapelera_;
    bool abrirAlIniciar_ = false;
    std::set<std::string> sugeridas_;
    int analisisID_ = 0;
    int limpiezas_ = 0;
    QTimer reloj_;
};
