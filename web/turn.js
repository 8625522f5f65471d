"use strict";

// Of the tabs that are open one may write; the others wait for their turn, in which they stay until
// they are closed.

const turn_answer_time = 700; // milliseconds that a tab may take to object
const turn_pause = 5000; // milliseconds between two questions

// Comes to its end when it is this tab's turn. A tab that the browser froze may find that another
// one has taken the turn meanwhile: then `lost` is called.
function turn_wait(lost) {
    const talk = async () => self.BroadcastChannel && turn_talk(new BroadcastChannel("quorrel"), lost);
    return new Promise(resolve => {
        if (navigator.locks) {
            const hold = () => {
                resolve();
                return new Promise(() => {}); // until the tab is closed
            };
            navigator.locks.request("quorrel", hold).catch(() => talk().then(resolve));
        } else {
            talk().then(resolve);
        }
    });
}

// Where the browser has no locks, as for pages that came by plain http, a tab asks the others: the
// one whose turn it is objects, and so does one that asked before.
async function turn_talk(channel, lost) {
    const me = {since: Date.now(), id: Math.random()};
    const is_before_me = other => other.since < me.since || (other.since === me.since && other.id < me.id);
    let has_turn = false;
    let refused;
    channel.onmessage = ({data}) => {
        if (data.taken && has_turn) {
            has_turn = false;
            lost();
        }
        if (data.asks && (has_turn || !is_before_me(data.asks))) {
            channel.postMessage({refused: data.asks.id});
        }
        refused ||= data.refused === me.id;
    };
    const pause = time => new Promise(resolve => setTimeout(resolve, time));
    for (;;) {
        refused = false;
        channel.postMessage({asks: me});
        await pause(turn_answer_time);
        if (!refused) {
            has_turn = true;
            channel.postMessage({taken: true});
            return;
        }
        await pause(turn_pause);
    }
}
