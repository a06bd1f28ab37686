#pragma once

#include <QByteArray>
#include <QString>
#include <vector>

namespace kelvro {

/// One chapter of the built-in manual.
struct ManualTopic {
    QString id;  ///< "start", "numbers", "page-3", ...
    QString title;
};

/// All chapters in reading order; every design page has one of its own.
const std::vector<ManualTopic>& ManualTopics();

/// HTML of a chapter; pictures are named "picture:circuit-3", "picture:window". An unknown id gives
/// the first chapter.
QString ManualHtml(const QString& id);

/// The project file of the worked example: an antenna matched.
QByteArray ManualExample();

/// The chapter about a design page.
QString TopicOfPage(int page);

}  // namespace kelvro
