#pragma once
// The station's link engine on the in-process camera line, its three timers run by the
// tick driver in simulated time, with recording decoders and messages.

#include <chrono>
#include <vector>

#include "common/runtime_error.hpp"
#include "common/shared.hpp"
#include "link/link.hpp"
#include "sim/line.hpp"
#include "sim/sim_port.hpp"
#include "sim/tick_driver.hpp"
#include "tests/support/fake_messages.hpp"
#include "tests/support/recording_decoders.hpp"

namespace station::testing {

using namespace std::chrono_literals;

struct LinkLineRig {
    LinkLineRig() {
        shared.CamNo = 1;
        port.setCommPort(1);
        port.setSettings("9600,N,8,1");
        port.open();
        line.onTraffic = [this](const sim::Traffic& t) { traffic.push_back(t); };
        messages.whileShown = [this](const std::string&) { shownAt.push_back(line.now()); };
        // The acknowledge and answer watches run only with "Ack On". A runtime error ends
        // the tick and is noted, as the program's event boundary does.
        ticks.every(40ms, [this] {
            try {
                link.Timer1_Timer();
            } catch (const RuntimeError& e) {
                errors.push_back(e.number());
            }
        });
        ticks.every(100ms, [this] { link.Timer2_Timer(); }, [this] { return shared.AckMode == 0; });
        ticks.every(500ms, [this] { link.Timer3_Timer(); }, [this] { return shared.AckMode == 0; });
    }

    sim::Camera& camera(int position, const std::string& id = "") {
        return line.addCamera(position, "AB1", id.empty() ? std::to_string(position) : id);
    }

    // Runs until the queue is empty and nothing is left in flight, or the limit passes.
    bool settleQueue(sim::Micros limit = 10s) {
        return ticks.runUntil([this] { return link.queue().SendCnt() == 0 && link.AckWait() == -1; }, limit);
    }

    std::vector<sim::Traffic> from(sim::Traffic::From who) const {
        std::vector<sim::Traffic> out;
        for (const sim::Traffic& t : traffic)
            if (t.from == who) out.push_back(t);
        return out;
    }
    std::vector<sim::Traffic> stationWrites() const { return from(sim::Traffic::From::Station); }
    std::vector<sim::Traffic> cameraSends() const { return from(sim::Traffic::From::Camera); }

    Shared shared;
    sim::Line line;
    sim::SimPort port{line};
    FakeMessages messages;
    RecordingDecoders decoders;
    Link link{shared, port, messages, decoders};
    sim::TickDriver ticks{line};
    std::vector<sim::Traffic> traffic;
    std::vector<sim::Micros> shownAt;
    std::vector<int> errors;  // runtime errors that ended a poll
};

}  // namespace station::testing
