#pragma once

#include <QByteArray>
#include <QPaintDevice>
#include <QSize>
#include <memory>

namespace kelvro {

class MetafileEngine;

/// A paint device that keeps lines, rectangles, polygons, paths and texts as the records of a
/// placeable metafile. The picture of `size` logical pixels lies in the middle of the metafile's
/// box with its proportions kept. Clipping and pixmaps are not carried over; colours are opaque.
class MetafileDevice : public QPaintDevice {
  public:
    explicit MetafileDevice(QSize size);
    ~MetafileDevice() override;

    QPaintEngine* paintEngine() const override;
    /// The file, once the painter has ended.
    QByteArray file() const;

  protected:
    int metric(PaintDeviceMetric metric) const override;

  private:
    QSize size_;
    std::unique_ptr<MetafileEngine> engine_;
};

}  // namespace kelvro
