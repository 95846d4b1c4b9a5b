#pragma once
// The serial link engine: builds and queues frames, and on each 40 ms poll reads the port,
// cuts frames out of the received bytes, checks and answers them, hands good ones to the
// reply decoders, follows the camera's ACK and NAK, and sends the next queued frame.
// Two slower watches report a frame that is never acknowledged (1 s) and an answer that
// never comes after a bad frame (25 s).
//
// Time enters only as the three timers' ticks; the engine never reads a clock.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "common/bytes.hpp"
#include "common/controls.hpp"
#include "common/messages.hpp"
#include "common/serial_port.hpp"
#include "common/shared.hpp"
#include "link/link_events.hpp"
#include "link/reply_decoders.hpp"
#include "link/send_queue.hpp"

namespace station {

class Link {
public:
    Link(Shared& shared, SerialPort& port, MessageSink& messages, ReplyDecoders& decoders);

    // Frames a command given as hex text for the selected camera and queues it. In camera-ID
    // mode a camera without an ID gets the "No Camera ID" message and nothing is queued.
    void SendCmd(const std::string& cmdStr);

    // Writes bytes to the port in one write and shows them in the send monitor.
    void CommOut(const Bytes& data);

    // The 40 ms poll: handshake-free sending, or read, consume, answer and send.
    void Timer1_Timer();
    // The acknowledge watch (100 ms): "No Acknowledge" and the frame dropped after 10 ticks.
    void Timer2_Timer();
    // The answer watch (500 ms): "No Answer from Camera" after 50 ticks.
    void Timer3_Timer();

    // Splits a good frame into two-digit hex texts and calls the decoders its class names.
    void RecCmd(std::span<const std::uint8_t> recData, int anslen);

    // Bytes typed into the command console, fed into the receive path by the next poll.
    // One byte when count is 1, `data` in order when it is larger.
    void setTestData(Integer count, Bytes data);
    Integer TestCnt() const { return testCnt_; }

    SendQueue& queue() { return queue_; }
    const SendQueue& queue() const { return queue_; }
    Integer AckWait() const { return ackWait_; }
    Integer AnsWait() const { return ansWait_; }
    const Bytes& RecBuff() const { return recBuff_; }
    // Bytes written to and read from the line so far: a tick that moved none changed
    // nothing the windows show of the line.
    std::uint64_t traffic() const { return traffic_; }

    // The line came back after it was lost: a frame that was awaiting its acknowledge when
    // the line went may never have reached the camera, so it is sent again and its watch
    // restarted, as after the camera's NAK. Otherwise nothing happens.
    void lineBack();

    // Drops every queued frame and stops watching the one awaiting its acknowledge, so that
    // a late ACK or NAK for it changes nothing. For a client that gives a camera up (the
    // command-line station's time limit); the station's own windows never call it.
    void giveUpQueued();

    // "Read every checksum exactly": a reply is judged by whether its checksum matches, also
    // when the checksum's low byte is below 0x10 (which the station's own reading turns
    // down, so that the camera resends and, after a while, the answer watch runs out). Off
    // by default: then every byte and tick is as the station has always had them.
    void readChecksumsExactly(bool on) { exactChecksums_ = on; }
    bool checksumsReadExactly() const { return exactChecksums_; }

    // Adds a watcher of the line (the line's state; a client counting replies); none by
    // default. Each watcher must outlive the link.
    void watch(LinkEvents* events) { events_.push_back(events); }

    // Timers of the main window that drive the three ticks above.
    Timer Timer1;
    Timer Timer2;
    Timer Timer3;

    // The traffic monitor: the last transmission ("Send Data") and the last reception
    // ("Recieve Data", the caption's long-standing spelling), a blank before each byte.
    Label Label10{"Send Data"};
    Label Label11{"Recieve Data"};
    void MonSend(const Bytes& data);
    void MonRec(const Bytes& data);

private:
    bool handshakeFree() const;
    void appendReceived(const Bytes& data);
    void consumeReceived(std::size_t available);
    bool consumeFrame(std::size_t available);
    void removeHeadAfterAck();

    Shared& shared_;
    SerialPort& port_;
    MessageSink& messages_;
    ReplyDecoders& decoders_;

    SendQueue queue_;
    std::uint64_t traffic_ = 0;
    Integer ackWait_ = 0;  // -1 idle, 10..1 counting down after a send
    Integer ansWait_ = 0;  // -1 idle, 50..1 counting down after a bad frame
    Bytes recBuff_;
    const Bytes ackByte_{0x06};  // the answers to a received frame, built once
    const Bytes nakByte_{0x15};
    Integer testCnt_ = 0;
    Bytes testData_;
    std::vector<LinkEvents*> events_;
    bool exactChecksums_ = false;
};

}  // namespace station
