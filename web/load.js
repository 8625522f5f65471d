"use strict";

// The start of the page: fetches the program, its data and its script, runs them, and says what is
// the matter where that fails. Until then, and when the game has ended, a curtain covers the game.

const element = id => document.getElementById(id);
const canvas = element("canvas");
const program_folder = document.currentScript.src.replace(/[^/]*$/, "");
const silence_limit = 15000; // milliseconds without a sign of the start going on

let game_state = "loading"; // then "running", then "over"
let silence_timer = 0;

const game_runs = () => game_state === "running";

// Covers the game with a text; without a text shows the game.
function curtain_show(text) {
    element("curtain").hidden = text === "";
    element("curtain_text").textContent = text;
}

function buttons_enable(enable) {
    for (const button of element("buttons").querySelectorAll("button")) {
        button.disabled = !enable;
    }
}

// Offers to start again.
function again_offer(text) {
    curtain_show(text);
    element("progress").hidden = true;
    element("late").hidden = true;
    element("choices").hidden = false;
    element("again").focus();
}

// The first reason that the game cannot go on stands.
function game_over(text) {
    clearTimeout(silence_timer);
    if (game_state !== "over") {
        game_state = "over";
        buttons_enable(false);
        again_offer(text);
    }
}

function load_goes_on() {
    clearTimeout(silence_timer);
    if (game_state === "loading") {
        silence_timer = setTimeout(() => again_offer("The server has not answered for a while."), silence_limit);
    }
}

// The page says how large each file is.
async function file_fetch(name) {
    const {href, dataset} = document.querySelector(`link[href$="/${name}"]`);
    const answer = await fetch(href);
    if (!answer.ok) {
        throw new Error(`the server answers ${answer.status}`);
    }
    const bytes = new Uint8Array(Number(dataset.bytes));
    let size = 0;
    for (let reader = answer.body.getReader();;) {
        const {done, value} = await reader.read();
        if (done) {
            break;
        }
        bytes.set(value, size); // fails when there is more
        size += value.length;
        element("progress").value += value.length;
        load_goes_on();
    }
    if (size < bytes.length) {
        throw new Error("cut off");
    }
    return bytes.buffer;
}

function program_file(name) {
    return file_fetch(name).catch(error => {
        throw new Error(`${name}: ${error.message}`);
    });
}

// Why the game cannot start, in words for the player.
function failure_words(error) {
    if (location.protocol === "file:") {
        return "Opened as a file, the page may not load the game. It has to come from a web server.";
    }
    if (self.origin === "null") {
        return "The frame around this page does not let it load the game. Open the page by itself.";
    }
    if (!self.WebAssembly) {
        return "This browser has no WebAssembly, or it is switched off.";
    }
    if (error instanceof WebAssembly.CompileError && /security policy|unsafe-eval|blocked by csp/i.test(error)) {
        return "The server's Content-Security-Policy does not let the page run WebAssembly.";
    }
    if (error instanceof RangeError || /\bOOM\b|out of memory/i.test(error)) {
        return "The browser has too little memory for Quorrel.";
    }
    return `Quorrel could not be started: ${error?.message ?? error}.`;
}

function start_fail(error) {
    console.info(error);
    game_over(failure_words(error));
}

// What Emscripten's script asks.
var Module = {
    preRun: [() => {
        memory_files_mend(Module.FS);
        Module.addRunDependency("store");
        store_load(Module.FS).then(() => Module.removeRunDependency("store"));
    }],
    locateFile: name => program_folder + name,
    // What the game says on standard error stays in the console; why it refused a map is shown, too.
    printErr(line) {
        console.info(line);
        notice_show(line.replace(/^quorrel: (\/incoming\/)?/, ""));
    },
    quit(status, stop) {
        game_over(canvas.getContext("webgl2") ? "Quorrel has stopped." :
            "Quorrel draws with WebGL 2, which this browser does not have or has switched off. " +
            "Any current browser has it, where the graphics of the computer are not blocked.");
        throw stop;
    },
    onAbort(reason) {
        game_runs() ? game_fail(reason) : start_fail(reason);
    },
};

function game_fail(error) {
    game_over(/\bOOM\b|out of memory/i.test(error) ?
        "Quorrel has stopped: the browser gave it too little memory." :
        `Quorrel has stopped at a fault of its own: ${error?.message ?? error}.`);
}

// Runs the program once it is there. Called when all scripts of the page are.
async function game_load() {
    try {
        const [program, data] = await program_files;
        Module.arguments = [store.directory];
        Module.getPreloadedPackage = () => data;
        Module.instantiateWasm = (imports, receive) => {
            WebAssembly.instantiate(program, imports).then(receive).catch(start_fail);
            return {};
        };
        const script = document.createElement("script");
        const link = document.querySelector('link[href$="/quorrel.js"]');
        script.src = link.href;
        script.integrity = link.integrity;
        document.head.append(script);
    } catch (error) {
        start_fail(error);
    }
}

element("again").onclick = () => location.reload();
element("without").onclick = () => {
    location.hash = "#without_maps";
    location.reload();
};

addEventListener("error", event => {
    if (event.target instanceof HTMLScriptElement) {
        start_fail(new Error(`${event.target.src.replace(/.*\//, "")} did not come whole`));
    } else if (event instanceof ErrorEvent && game_state === "loading") {
        start_fail(event.error ?? event.message);
    } else if (self.WebAssembly && event.error instanceof WebAssembly.RuntimeError) {
        game_fail(event.error);
    }
}, true);

load_goes_on();
const program_files = Promise.all([
    program_file("quorrel.wasm").then(bytes => WebAssembly.compile(bytes)),
    program_file("quorrel.data"),
]);
program_files.catch(() => {}); // told by game_load
