// Plays one sound file to its end. A process of its own: sound back ends crash where drivers or decoders are
// missing, and nothing is lost when this program does.
#include <QAudioOutput>
#include <QCoreApplication>
#include <QFileInfo>
#include <QMediaPlayer>
#include <QTimer>
#include <QUrl>

#include <cstdio>

namespace
{
constexpr int kFailed = 1;
// A file that claims to have no end does not keep the process.
constexpr int kLongestSound = 10 * 60 * 1000;
} // namespace

int main(int argc, char** argv)
{
    // The other back end crashes where there is no sound device.
    if (qEnvironmentVariableIsEmpty("QT_MEDIA_BACKEND"))
        qputenv("QT_MEDIA_BACKEND", "gstreamer");
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2)
    {
        std::fputs("Usage: corvane-sound FILE\n", stderr);
        return kFailed;
    }
    QMediaPlayer player;
    QAudioOutput output;
    player.setAudioOutput(&output);
    QObject::connect(&player, &QMediaPlayer::mediaStatusChanged, &application,
                     [](QMediaPlayer::MediaStatus status)
                     {
                         if (status == QMediaPlayer::EndOfMedia)
                             QCoreApplication::exit(0);
                         else if (status == QMediaPlayer::InvalidMedia)
                             QCoreApplication::exit(kFailed);
                     });
    QObject::connect(&player, &QMediaPlayer::errorOccurred, &application,
                     [](QMediaPlayer::Error, const QString& text)
                     {
                         std::fprintf(stderr, "%s\n", qPrintable(text));
                         QCoreApplication::exit(kFailed);
                     });
    QTimer::singleShot(kLongestSound, &application, [] { QCoreApplication::exit(0); });
    player.setSource(QUrl::fromLocalFile(QFileInfo(arguments.at(1)).absoluteFilePath()));
    player.play();
    return QCoreApplication::exec();
}
