// Wakes and reads pages through the toolkit's own blocking calls: peer_toolkit DEVICE EXCHANGES.

#include "line/peer.h"

#include <QCoreApplication>
#include <QSerialPort>

#include <cstdlib>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (argc != 3) return 1;
    QSerialPort port(QString::fromLocal8Bit(argv[1]));
    port.setStopBits(QSerialPort::TwoStop);
    if (!port.open(QIODevice::ReadWrite)) return 1;
    tarvex::bench::Converse({[&](const std::string& bytes) {
                                 port.write(bytes.data(), static_cast<qint64>(bytes.size()));
                                 port.flush();
                             },
                             [&](int count) {
                                 while (port.bytesAvailable() < count)
                                     if (!port.waitForReadyRead(-1)) std::exit(1);
                                 port.readAll();
                             }},
                            std::stoi(argv[2]));
}
