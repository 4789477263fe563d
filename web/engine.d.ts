// engine.d.ts - what the page and the calculator say to each other. README.md explains
// the order of things. The page uses Engine of engine.js; the messages themselves pass
// between engine.js and worker.js only.
//
// Numbers of the calculator are JavaScript numbers, or the texts "inf", "-inf" and "nan".

export type Value = number | "inf" | "-inf" | "nan";

// --- what the calculator shows

/** A line of the display, in pixels of the face (306 by 567) from its top left corner. */
export interface DisplayLine {
    text: string;             // up to 23 characters, blanks included
    font: "large" | "small";  // 12 or 8 points: 16 or 11 pixels
    left: number;             // of the upper left corner of the first character
    top: number;
}

/** A text beside the face: the listing or the registers. */
export interface Box {
    lines: string[];    // without line ends
    highlight: number;  // line, from 0
    shown: boolean;
}

export interface Level {
    name: "x" | "y" | "z" | "t" | "lastx";
    value: Value;
}

export type Command =
    | "new" | "open" | "save" | "saveAs" | "repairHighlight" | "graph" | "options" | "exit"
    | "pageSetup" | "print";

export interface Options {
    keepListing: boolean;    // beside the face, also in run mode
    keepRegisters: boolean;
    trace: boolean;
    soundOff: boolean;
}

export interface Modes {
    running: boolean;      // from a start with R/S to the halt; also during a single step
    programMode: boolean;  // where slide switch 32 is: left is program mode
    stackView: boolean;    // slide switch 31 is held right
    angle: "RAD" | "DEG" | "GRD";
    format: string;        // "FIX 2"
    keystrokes: string;    // keys of an instruction that is not complete: "f", "STO +"
    line: number;          // the current program line, 0 to 98
}

export interface File {
    name: string;       // "" while untitled
    modified: boolean;
    status: string;     // the status bar's text
}

/** Those below the display that are lit. */
export interface Lamps {
    f: boolean;         // f is pending
    g: boolean;
    program: boolean;   // program mode
    run: boolean;       // a program is running
}

/** What has changed since the last state; the first one is complete. */
export interface State {
    display?: DisplayLine[];
    lamps?: Lamps;
    listing?: Box;
    registers?: Box;
    stack?: Level[];
    registerValues?: Value[];  // 30
    modes?: Modes;
    file?: File;
    options?: Options;
    disabled?: Command[];      // the others are allowed
    graph?: GraphState;
}

// --- the graph

export interface GraphState {
    shown: boolean;
    points: number;      // of all data lines
    lines: GraphLine[];
    settings: GraphSettings;
    userRange: boolean;  // false: the range follows the data
}

export interface GraphLine {
    label: string;
    type: 0 | 1 | 2 | 3;   // plot, stair step, scatter, stoop
    colour: number;        // 0xRRGGBB
    width: number;         // 1 to 4
    style: number;         // 0 to 4: line style or marker
    multiplier: number;
    offset: number;
    points: number;
}

/** How a line is drawn; without a label it keeps its own. */
export interface LineFormat {
    label: string;
    type: number;
    colour: number;
    width: number;
    style: number;
    multiplier: number;  // of an existing line
    offset: number;
}

export interface LinePoints {
    text: string;
    withX: boolean;
}

export interface GraphSettings {
    title: string;      // up to 100 characters, as the label
    label: string;      // of the horizontal axis
    xTicks: number;     // up to 26
    yTicks: number;
    xMin: number;
    xMax: number;
    yMin: number;
    yMax: number;
    xGrid: boolean;
    yGrid: boolean;
    legend: boolean;
    axisColour: number;  // 0xRRGGBB
    textColour: number;
    background: number;
}

/**
 * A picture of the graph, for plot_painter.js. Each operation is its code, followed by
 * its numbers: 1 box (left top right bottom colour), 2 line (style width colour n, then
 * n points), 3 polygon (colour n, then n points), 4 text (x y align colour, index in
 * texts), 5 clip (left top right bottom), 6 end of the last clip. Colours are 0xRRGGBB.
 */
export interface GraphPicture {
    width: number;
    height: number;
    operations: Int32Array;
    texts: string[];
}

/** The data point nearest to a place in the picture. */
export interface Readout {
    line: number;   // from 1
    label: string;
    index: number;  // of the point in the line, from 0
    x: Value;
    y: Value;
    left: number;   // where the picture has it
    top: number;
}

// --- events, in the order in which they happen

export interface Question {
    text: string;  // may contain line ends
    caption: string;
    buttons: "ok" | "okCancel" | "yesNoCancel" | "retryCancel";
    icon: "none" | "error" | "question";
}

export type Answer = "ok" | "cancel" | "yes" | "no" | "retry";

export interface FileQuestion {
    dialog: "open" | "save";
    name: string;  // proposed
}

/** A file that the user has chosen. To save, only its name counts. */
export interface ChosenFile {
    name: string;
    bytes?: Uint8Array;
}

export interface Sound {
    id: number;    // 10050 to 10058
    name: "key_click" | "refusal" | "error" | "halted" | "cleared" | "slide_on" | "slide_off"
        | "program_mode" | "run_mode";
}

export interface Rect {
    left: number;
    top: number;
    width: number;
    height: number;
}

/** Where things are on the picture of the face, in its pixels. */
export interface Face {
    width: number;
    height: number;
    keys: Rect[];      // key 1 is the first
    switches: Rect[];  // 31 and 32
    switchStarts: number[];  // of the thumb, in pixels from the left end: 0 or 12
    thumbWidth: number;
    display: Rect;
}

export interface EngineEvents {
    ready: Face;              // once, before everything else
    state: State;
    sound: Sound;
    pause: { milliseconds: number };    // PAUSE has begun
    picture: GraphPicture;    // the graph has changed, or view() was called
    trace: { text: string };  // lines of a running program, while tracing is on
    saved: { name: string; bytes: Uint8Array };  // the page hands it to the user
    kept: { text: Kept };     // after each change; of a run, when it has ended
    quit: Record<string, never>;        // the calculator asks to be closed
    failed: { text: string };  // the engine is gone: out of memory, or an error of its own
}

/** Answers questions. Without a handler, "ask" is answered with ok or cancel, a file with null. */
export interface EngineHandlers {
    ask(question: Question): Promise<Answer>;
    askFile(question: FileQuestion): Promise<ChosenFile | null>;
}

// --- what the page may ask for

/** What survives a reload; text that only restore() reads. */
export type Kept = string;

export declare class Engine {
    /**
     * Starts the calculator in a worker. wasm is the compiled module, or its bytes. What is
     * asked for before it has come waits.
     */
    constructor(worker: Worker, wasm: Promise<WebAssembly.Module | ArrayBuffer>,
        handlers: EngineHandlers);

    on<Name extends keyof EngineEvents>(name: Name, handler: (event: EngineEvents[Name]) => void): void;

    /** Key 1 to 30, or switch 31 or 32, is pressed (true) or released. */
    key(code: number, down: boolean): void;

    /** A character of the PC keyboard; "\r" is Enter, "\x1b" Escape. */
    char(character: string): void;

    /** Halts a run after its current line, without a sound. */
    halt(): void;

    /** Commands of the menu. False if it was refused, failed or cancelled. */
    command(name: "new" | "open" | "save" | "saveAs" | "repairHighlight"): Promise<boolean>;
    setOptions(options: Options): Promise<boolean>;

    /** Opens a listing as if it had been chosen: asks whether to discard a modified program. */
    open(file: ChosenFile): Promise<boolean>;

    /** The program as a text file would have it. */
    listingText(): Promise<string>;

    /** Performs words of a listing, as "script"'s command do: "2 3 + STO 5". */
    perform(words: string): Promise<boolean>;

    restore(kept: Kept): Promise<boolean>;

    /** From now on pictures of this size are sent; 0 by 0: none. */
    view(width: number, height: number): void;
    showGraph(shown: boolean): void;
    readout(left: number, top: number): Promise<Readout | null>;
    graphSvg(width: number, height: number): Promise<string>;

    /** Data files; bytes are those of the file. */
    openGraph(file: ChosenFile): Promise<boolean>;
    appendGraph(file: ChosenFile): Promise<boolean>;
    /** "saved" brings the bytes. */
    saveGraph(name: string): Promise<boolean>;

    setGraph(settings: GraphSettings): Promise<boolean>;
    setGraphTitle(title: string, label: string): Promise<boolean>;
    setGraphGrid(x: boolean, y: boolean): Promise<boolean>;
    setGraphLegend(legend: boolean): Promise<boolean>;
    autoRange(): Promise<boolean>;
    clearGraph(): Promise<boolean>;
    /** Lines count from 1. */
    formatLine(line: number, format: LineFormat): Promise<boolean>;
    deleteLine(line: number): Promise<boolean>;
    /** The points as a text to edit, one a line: "1.5 , 2" with x values, "2" without. */
    linePoints(line: number): Promise<LinePoints | null>;
    addLine(points: LinePoints, format: LineFormat): Promise<boolean>;
    replacePoints(line: number, points: LinePoints): Promise<boolean>;

    /** Ends the worker. */
    close(): void;
}
