#include "ui/mnemonics.h"

#include <QAbstractButton>
#include <QAction>
#include <QHash>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSet>
#include <QToolButton>
#include <algorithm>

namespace kelvro {

namespace {

/// The letter behind the '&' that counts; null where there is none. "&&" prints one.
QChar MnemonicOf(const QString& caption) {
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != '&') continue;
        if (caption[i + 1] != '&') return caption[i + 1].toUpper();
        ++i;
    }
    return {};
}

QString WithoutMnemonic(const QString& caption) {
    QString plain;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) {
            if (caption[i + 1] == '&') plain += "&&";
            if (caption[i + 1] == '&') ++i;
            continue;
        }
        plain += caption[i];
    }
    return plain;
}

/// Where a mnemonic may stand in a plain caption: starts of words first.
QList<qsizetype> Places(const QString& plain) {
    QList<qsizetype> starts;
    QList<qsizetype> others;
    for (qsizetype i = 0; i < plain.size(); ++i) {
        if (!plain[i].isLetterOrNumber() || plain[i].unicode() > 127) continue;
        const bool start = i == 0 || !plain[i - 1].isLetterOrNumber();
        (start ? starts : others) << i;
    }
    return starts + others;
}

/// Letters shared out among captions: each new caption may make earlier ones move on to another
/// of their letters, so that as many as possible get one (matching by augmenting paths).
class Letters {
  public:
    Letters(const QStringList& captions, const QString& taken) {
        for (const QChar letter : taken) taken_ << letter.toUpper();
        for (const QString& caption : captions) {
            Caption entry{WithoutMnemonic(caption), {}};
            entry.places = Places(entry.plain);
            const QChar own = MnemonicOf(caption);
            std::stable_partition(entry.places.begin(), entry.places.end(),
                                  [&](qsizetype at) { return entry.plain[at].toUpper() == own; });
            captions_ << entry;
        }
        for (qsizetype i = 0; i < captions_.size(); ++i) {
            QSet<QChar> tried;
            place(i, tried);
        }
    }

    QStringList captions() const {
        QStringList texts;
        for (const Caption& caption : captions_) texts << caption.plain;
        for (auto at = owners_.begin(); at != owners_.end(); ++at) {
            const Caption& caption = captions_[at.value()];
            const auto stands = [&](qsizetype i) { return caption.plain[i].toUpper() == at.key(); };
            texts[at.value()].insert(
                *std::find_if(caption.places.begin(), caption.places.end(), stands), '&');
        }
        return texts;
    }

  private:
    struct Caption {
        QString plain;
        QList<qsizetype> places;
    };

    bool place(qsizetype index, QSet<QChar>& tried) {
        const Caption& caption = captions_[index];
        for (const qsizetype at : caption.places) {
            const QChar letter = caption.plain[at].toUpper();
            if (taken_.contains(letter) || tried.contains(letter)) continue;
            tried << letter;
            const auto owner = owners_.constFind(letter);
            if (owner != owners_.constEnd() && !place(*owner, tried)) continue;
            owners_[letter] = index;
            return true;
        }
        return false;
    }

    QSet<QChar> taken_;
    QList<Caption> captions_;
    QHash<QChar, qsizetype> owners_;
};

bool ShowsItsCaption(const QAbstractButton& button) {
    if (button.text().isEmpty()) return false;
    const auto* tool = qobject_cast<const QToolButton*>(&button);
    return !tool || tool->toolButtonStyle() != Qt::ToolButtonIconOnly;
}

void GiveItems(const QList<QAction*>& actions) {
    QList<QAction*> items;
    QStringList captions;
    for (QAction* item : actions) {
        if (item->isSeparator() || !item->isVisible()) continue;
        items << item;
        captions << item->text();
        if (item->menu()) GiveItems(item->menu()->actions());
    }
    captions = WithUniqueMnemonics(captions);
    for (qsizetype i = 0; i < items.size(); ++i) items[i]->setText(captions[i]);
}

}  // namespace

QStringList WithUniqueMnemonics(const QStringList& captions, const QString& taken) {
    return Letters(captions, taken).captions();
}

void GiveMnemonics(QMenuBar& bar) {
    GiveItems(bar.actions());
}

QString GiveMnemonics(QWidget& root, const QString& taken) {
    QString letters = taken;
    const auto take = [&](const QString& caption) {
        if (const QChar letter = MnemonicOf(caption); !letter.isNull()) letters += letter;
    };
    for (const QMenuBar* bar : root.findChildren<QMenuBar*>())
        for (const QAction* menu : bar->actions()) take(menu->text());
    // Labels come first: what is left goes to the buttons.
    QList<QWidget*> owners;
    QStringList captions;
    for (QLabel* label : root.findChildren<QLabel*>()) {
        if (!label->buddy() || MnemonicOf(label->text()).isNull()) continue;
        owners << label;
        captions << label->text();
    }
    for (QAbstractButton* button : root.findChildren<QAbstractButton*>()) {
        if (!ShowsItsCaption(*button)) {
            take(button->text());
            continue;
        }
        owners << button;
        captions << button->text();
    }
    captions = WithUniqueMnemonics(captions, letters);
    for (qsizetype i = 0; i < owners.size(); ++i) {
        if (owners[i]->property("text") != captions[i]) owners[i]->setProperty("text", captions[i]);
        take(captions[i]);
    }
    return letters;
}

void EnterGroupsAtTheChosen(QWidget& root) {
    const auto isOfGroup = [](const QAbstractButton& button) {
        return button.isCheckable() && (button.autoExclusive() || button.group());
    };
    for (QAbstractButton* button : root.findChildren<QAbstractButton*>()) {
        if (!isOfGroup(*button) || button->focusPolicy() == Qt::NoFocus) continue;
        const auto follow = [=](bool chosen) {
            if (!chosen) return;
            for (auto* other : button->parentWidget()->findChildren<QAbstractButton*>(
                     Qt::FindDirectChildrenOnly)) {
                const bool sameGroup = isOfGroup(*other) && other->group() == button->group();
                if (sameGroup && other->focusPolicy() != Qt::NoFocus)
                    other->setFocusPolicy(other == button ? Qt::StrongFocus : Qt::ClickFocus);
            }
        };
        QObject::connect(button, &QAbstractButton::toggled, button, follow);
        follow(button->isChecked());
    }
}

}  // namespace kelvro
