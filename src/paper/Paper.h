#pragma once

#include <QtPlugin>

#include <functional>

class QIODevice;
class QPagedPaintDevice;
class QPainter;
class QSize;
class QString;
class QWidget;

/// Printing and SVG, in a module of its own that is loaded when it is first needed: the libraries
/// it needs would slow down every start.
class Paper {
public:
    virtual ~Paper() = default;

    /// False when the computer knows no printer.
    virtual bool hasPrinter() const = 0;
    /// Shows the system's print dialog over `window`, without blocking. Calls `paint` when the
    /// person prints, which returns false where the pages could not be painted; then `failed` is
    /// called.
    virtual void print(QWidget& window, const QString& documentName,
                       std::function<bool(QPagedPaintDevice&)> paint,
                       std::function<void()> failed) = 0;
    /// Writes an SVG picture to the open `device`; false when it could not.
    virtual bool writeSvg(QIODevice& device, QSize size, const QString& title,
                          const std::function<void(QPainter&)>& paint) = 0;
};

Q_DECLARE_INTERFACE(Paper, "io.github.aquelon.Aquelon.Paper/1")
