// The browser panel: the station's remote command set over one WebSocket. Each message sent
// is one command line; each reply ("OK ...", "ERR ...") answers the oldest command still
// open; "EV <name> <value>" lines tell what changed, whoever changed it.
'use strict';

const LEVELS = [['mblk', 'M.BLK'], ['iris', 'IRIS'], ['detail', 'DTL'], ['rgain', 'R.GAIN'],
                ['bgain', 'B.GAIN'], ['rblk', 'R.BLK'], ['bblk', 'B.BLK']];
const MODES = [['bar', 'Bars'], ['detail', 'Detail'], ['shutter', 'Shutter'], ['gain', 'Gain'],
               ['white', 'White'], ['iris', 'Iris'], ['monitor', 'Monitor']];
const GAIN_STEPS = ['low', 'mid', 'high'];
const ANSWERS = {answering: 'ok', quiet: 'quiet', 'not heard': 'none', 'not answering': 'bad', unknown: 'none'};

const $ = (id) => document.getElementById(id);
const state = new Map();   // what the station pushed, by name
let offered = new Set();   // the controls the window does not grey
let socket = null;
let replies = [];          // callbacks of the commands still open, oldest first
let storing = false;       // STORE is pressed: the next scene button stores

// The words of a line; a word in double quotes may hold blanks. An item of "get" ends at ';'.
function words(text) {
  const items = [[]];
  let word = null;
  let quoted = false;
  for (const c of text) {
    if (quoted) {
      if (c === '"') quoted = false; else word += c;
    } else if (c === '"') {
      quoted = true;
      word = word ?? '';
    } else if (c === ' ' || c === ';') {
      if (word !== null) items[items.length - 1].push(word);
      word = null;
      if (c === ';') items.push([]);
    } else {
      word = (word ?? '') + c;
    }
  }
  if (word !== null) items[items.length - 1].push(word);
  return items.filter((i) => i.length > 0);
}

function send(line, answered) {
  if (!socket || socket.readyState !== WebSocket.OPEN) return false;
  replies.push(answered || null);
  socket.send(line);
  return true;
}

// A command a control gives: its refusal is shown, the rest follows from the pushes.
function command(line) {
  send(line, (reply) => { if (reply.startsWith('ERR')) say(reply.slice(4)); });
}

function say(text) {
  $('message').textContent = text;
}

// ---- Faders: at most one level command of a fader waits for its reply; a value the hand
// gives meanwhile is kept, the newest replacing older ones, and goes when the reply comes.
class Fader {
  constructor(name, caption, parent) {
    this.name = name;
    this.waiting = false;
    this.kept = null;
    this.held = false;
    const box = document.createElement('div');
    box.className = 'fader';
    box.innerHTML = `<span class="value" aria-hidden="true">0</span><input type="range" min="-128" max="127" step="1"
      aria-label="${caption}" aria-orientation="vertical"><span class="caption">${caption}</span>`;
    parent.appendChild(box);
    this.input = box.querySelector('input');
    this.shown = box.querySelector('.value');
    this.input.addEventListener('input', () => this.move(Number(this.input.value)));
    this.input.addEventListener('pointerdown', () => { this.held = true; });
    for (const end of ['pointerup', 'pointercancel', 'blur']) this.input.addEventListener(end, () => { this.held = false; });
  }

  move(value) {
    this.shown.textContent = value;
    if (this.waiting) {
      this.kept = value;
      return;
    }
    this.go(value);
  }

  go(value) {
    this.waiting = send(`level ${this.name} ${value}`, (reply) => {
      this.waiting = false;
      if (reply.startsWith('ERR')) say(reply.slice(4));
      if (this.kept !== null) {
        const next = this.kept;
        this.kept = null;
        this.go(next);
      }
    });
  }

  // A pushed value moves the fader unless the hand is on it or its own values are on their way.
  follow(text) {
    if (this.held || this.waiting || this.kept !== null) return;
    this.shown.textContent = text;
    if (/^-?\d+$/.test(text)) this.input.value = text;
  }

  range(lo, hi) {
    this.input.min = lo;
    this.input.max = hi;
  }
}

const faders = new Map();

// ---- Building the panel

function button(parent, label, caption, onPress) {
  const b = document.createElement('button');
  b.type = 'button';
  b.setAttribute('aria-label', label);
  b.setAttribute('aria-pressed', 'false');
  b.textContent = caption;
  if (onPress) b.addEventListener('click', onPress);
  parent.appendChild(b);
  return b;
}

function buildCameras(captions) {
  const parent = $('cameras');
  parent.textContent = '';
  const [lo, ...names] = captions.split('|');
  names.forEach((caption, i) => {
    const n = Number(lo) + i;
    const b = button(parent, n === 0 ? 'Group' : `Camera ${n}`, n === 0 ? 'GROUP' : String(n),
                     () => command(n === 0 ? 'camera group' : `camera ${n}`));
    b.dataset.camera = n;
    b.dataset.needs = 'camera';
    b.classList.add('camera');
    b.insertAdjacentHTML('beforeend', '<i class="answer" aria-hidden="true"></i>');
  });
  showAll();
}

function buildScenes() {
  const parent = $('scenes');
  for (let n = 1; n <= 4; ++n) {
    const b = button(parent, `Scene ${n}`, `SCENE ${n}`, () => {
      command(storing ? `scene store ${n}` : `scene recall ${n}`);
      setStoring(false);
    });
    b.dataset.scene = n;
    b.dataset.needs = 'scene';
  }
  const store = button(parent, 'Store', 'STORE', () => setStoring(!storing));
  store.id = 'store';
  store.dataset.needs = 'scene';
  const clear = button(parent, 'Clear', 'CLEAR', () => command('scene clear'));
  clear.dataset.needs = 'clear';
  clear.removeAttribute('aria-pressed');
}

function setStoring(on) {
  storing = on;
  $('store').setAttribute('aria-pressed', String(on));
}

function buildMode(name, title, captions) {
  let group = document.getElementById(`mode-${name}`);
  if (!group) {
    group = document.createElement('div');
    group.id = `mode-${name}`;
    group.className = `group mode ${name}`;
    $('modes').appendChild(group);
  }
  group.innerHTML = `<h2>${title.toUpperCase()}</h2>`;
  const [lo, ...names] = captions.split('|');
  names.forEach((caption, i) => {
    if (caption.trim() === '') return;
    const index = Number(lo) + i;
    const b = button(group, `${title} ${caption}`, caption, () => command(`mode ${name} ${index}`));
    b.dataset.mode = name;
    b.dataset.index = index;
    b.dataset.needs = `mode ${name}`;
    if (name === 'gain' && index <= 2) {
      const step = GAIN_STEPS[index];
      const row = document.createElement('span');
      row.className = 'gain-value';
      row.innerHTML = `<span class="value" id="gain-${step}"></span>`;
      for (const [way, arrow] of [['down', '▼'], ['up', '▲']]) {
        const spin = button(row, `Gain ${caption} ${way}`, arrow, () => command(`gain value ${step} ${way}`));
        spin.removeAttribute('aria-pressed');
        spin.dataset.needs = `gain value ${step}`;
      }
      group.appendChild(row);
    }
  });
  showAll();
}

function buildFaders() {
  for (const [name, caption] of LEVELS) faders.set(name, new Fader(name, caption, $('faders')));
}

// ---- Showing what the station pushed

function show(name, value) {
  state.set(name, value);
  const [first, second] = name.split(' ');
  if (first === 'panel') return showLayout(name.slice(6), value);
  switch (first) {
    case 'camera': return markPressed('[data-camera]', (b) => b.dataset.camera === value);
    case 'scene': return markPressed('[data-scene]', (b) => b.dataset.scene === value);
    case 'mode': return markPressed(`[data-mode="${second}"]`, (b) => b.dataset.index === value);
    case 'level': return faders.get(second)?.follow(value);
    case 'gain': { const v = $(`gain-${second}`); if (v) v.textContent = value; return; }
    case 'filter': $('filter').textContent = value; return;
    case 'call': $('call').setAttribute('aria-pressed', String(value === 'on')); return;
    case 'auto': if (!second) $('auto').textContent = value === 'none' ? '' : value; return;
    case 'tally': return showTally();
    case 'answer': return showAnswer(second, value);
    case 'line': return showLine();
    case 'box': return showBox(value);
    case 'clients': $('clients').textContent = `${value} connected`; return;
    default: return;
  }
}

function markPressed(selector, isOn) {
  for (const b of document.querySelectorAll(selector)) b.setAttribute('aria-pressed', String(isOn(b)));
  showTally();
}

function showTally() {
  const on = state.get('tally') === 'on';
  for (const b of document.querySelectorAll('[data-camera]'))
    b.classList.toggle('tally', on && b.dataset.camera === state.get('camera'));
}

function showAnswer(camera, value) {
  const b = document.querySelector(`[data-camera="${camera}"] .answer`);
  if (b) b.className = `answer ${ANSWERS[value] || 'none'}`;
  if (b) b.title = value;
}

function showLine() {
  const line = state.get('line') || '…';
  $('line').textContent = `${line}${state.get('line port') ? ' · ' + state.get('line port') : ''}`;
  $('line').classList.toggle('bad', !line.startsWith('connected'));
}

function showBox(text) {
  $('box').hidden = text === 'closed' || text === '';
  $('box-text').textContent = text;
}

function showLayout(what, value) {
  const [kind, name] = what.split(' ');
  if (kind === 'cameras') return buildCameras(value);
  if (kind === 'mode') return buildMode(name, MODES.find(([n]) => n === name)[1], value);
  if (kind === 'range') return faders.get(name)?.range(...value.split(' '));
  if (kind === 'offered') {
    offered = new Set(value.split(','));
    return showAll();
  }
  if (kind === 'type' || kind === 'id') {
    const type = state.get('panel type');
    $('camera-info').textContent = type ? `${type} · ID ${state.get('panel id') || '?'}` : 'no camera type';
  }
}

// Greys what the window greys, and shows again every pushed value on rebuilt controls.
function showAll() {
  for (const el of document.querySelectorAll('[data-needs]')) el.disabled = !offered.has(el.dataset.needs);
  for (const [name, fader] of faders) fader.input.disabled = !offered.has(`level ${name}`);
  for (const key of ['camera', 'scene', ...MODES.map(([n]) => `mode ${n}`), 'gain low', 'gain mid', 'gain high'])
    if (state.has(key)) show(key, state.get(key));
  for (let n = 1; n <= 8; ++n) if (state.has(`answer ${n}`)) showAnswer(n, state.get(`answer ${n}`));
}

// ---- The connection

function received(text) {
  if (text.startsWith('EV ')) {
    const w = words(text.slice(3))[0] || [];
    if (w.length >= 2) show(w.slice(0, -1).join(' '), w[w.length - 1]);
    return;
  }
  const answered = replies.shift();
  if (text === 'ERR auth required') askPasscode('');
  if (answered) answered(text);
}

function connect() {
  const url = `${location.protocol === 'https:' ? 'wss' : 'ws'}://${location.host}/ws`;
  socket = new WebSocket(url);
  socket.onopen = () => {
    $('lost').hidden = true;
    replies = [];
    const passcode = sessionStorage.getItem('passcode');
    if (passcode) send(`auth ${passcode}`, (reply) => { if (reply !== 'OK') askPasscode(reply); });
    readAll();
  };
  socket.onmessage = (event) => received(event.data);
  socket.onclose = () => {
    $('lost').hidden = false;
    for (const f of faders.values()) { f.waiting = false; f.kept = null; }
    setTimeout(connect, 1000);
  };
}

// Everything as it is now, then the pushes keep it.
function readAll() {
  send('get', (reply) => {
    if (!reply.startsWith('OK ')) return;
    for (const item of words(reply.slice(3))) if (item.length >= 2) show(item.slice(0, -1).join(' '), item[item.length - 1]);
  });
}

function askPasscode(why) {
  $('passcode-error').textContent = why.replace(/^ERR /, '');
  $('passcode-prompt').hidden = false;
  $('passcode').focus();
}

$('passcode-form').addEventListener('submit', (event) => {
  event.preventDefault();
  const passcode = $('passcode').value;
  send(`auth ${passcode}`, (reply) => {
    if (reply !== 'OK') return askPasscode(reply);
    sessionStorage.setItem('passcode', passcode);
    $('passcode-prompt').hidden = true;
    readAll();
  });
});

// ---- Controls that are not built from the layout

for (const b of document.querySelectorAll('[data-cmd]')) b.addEventListener('click', () => command(b.dataset.cmd));
$('box-ok').addEventListener('click', () => command('box ok'));

// CALL is held while touched (or while Space or Enter is down).
const call = $('call');
const callOn = (event) => { event.preventDefault(); if (!call.dataset.held) { call.dataset.held = '1'; command('call on'); } };
const callOff = () => { if (call.dataset.held) { delete call.dataset.held; command('call off'); } };
call.addEventListener('pointerdown', callOn);
for (const end of ['pointerup', 'pointercancel', 'pointerleave', 'blur']) call.addEventListener(end, callOff);
call.addEventListener('keydown', (e) => { if ((e.key === ' ' || e.key === 'Enter') && !e.repeat) callOn(e); });
call.addEventListener('keyup', (e) => { if (e.key === ' ' || e.key === 'Enter') callOff(); });

buildScenes();
buildFaders();
showAll();
connect();
