#include "platform/sound.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QMediaDevices>
#include <QMediaPlayer>
#include <QUrl>

#include <memory>

namespace hotel {

namespace {

class SystemLoudspeaker : public Loudspeaker {
public:
    void play(const QString& file) override {
        const QString path = QDir(QCoreApplication::applicationDirPath())
                                 .filePath(QString(file).replace(u'\\', u'/'));
        if (!QFileInfo(path).isFile() || QMediaDevices::defaultAudioOutput().isNull())
            return;
        if (!player_) {
            output_ = std::make_unique<QAudioOutput>();
            player_ = std::make_unique<QMediaPlayer>();
            player_->setAudioOutput(output_.get());
        }
        player_->stop();
        player_->setSource(QUrl::fromLocalFile(path));
        player_->play();
    }

private:
    std::unique_ptr<QAudioOutput> output_;
    std::unique_ptr<QMediaPlayer> player_;
};

Loudspeaker*& Replacement() {
    static Loudspeaker* replacement = nullptr;
    return replacement;
}

} // namespace

Loudspeaker& Loudspeaker::Installed() {
    // Never destroyed: it goes with the program, when the toolkit's own devices have gone already.
    static auto* system = new SystemLoudspeaker;
    return Replacement() ? *Replacement() : *system;
}

void Loudspeaker::Install(Loudspeaker* loudspeaker) {
    Replacement() = loudspeaker;
}

} // namespace hotel
