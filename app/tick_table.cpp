#include "app/tick_table.hpp"

#include "app/station.hpp"

namespace station {

StationTicks stationTicks(Station& station) {
    Station* s = &station;
    const Link& link = station.link;
    // The watches count down from 0 or more; at -1 a tick does nothing.
    return {{
        {StationTick::Poll, link.Timer1, [s] { s->Timer1_Timer(); },
         [s](bool lineBusy) {
             return !s->line.connected() || s->link.queue().SendCnt() > 0 || s->link.TestCnt() > 0 || lineBusy;
         }},
        {StationTick::AckWatch, link.Timer2, [s] { s->Timer2_Timer(); }, [s](bool) { return s->link.AckWait() >= 0; }},
        {StationTick::AnswerWatch, link.Timer3, [s] { s->Timer3_Timer(); },
         [s](bool) { return s->link.AnsWait() >= 0; }},
        {StationTick::FilterRelease, station.form1.Timer4, [s] { s->Timer4_Timer(); },
         [s](bool) { return s->form1.RelCount > 0; }},
        {StationTick::AutoMessage, station.form6.Timer1, [s] { s->Form6Timer_Timer(); },
         [s](bool) { return s->form6.Timer1.Enabled; }},
    }};
}

}  // namespace station
