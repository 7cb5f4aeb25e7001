#pragma once

#include "paper/Paper.h"

#include <QObject>

/// What the module exports.
class PaperModule : public QObject, public Paper {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "io.github.aquelon.Aquelon.Paper/1")
    Q_INTERFACES(Paper)

public:
    bool hasPrinter() const override;
    void print(QWidget& window, const QString& documentName,
               std::function<bool(QPagedPaintDevice&)> paint,
               std::function<void()> failed) override;
    bool writeSvg(QIODevice& device, QSize size, const QString& title,
                  const std::function<void(QPainter&)>& paint) override;
};
