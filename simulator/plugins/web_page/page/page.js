// The page of the phone. The server sends frames with the changed rectangles of the picture, and JSON texts; the page
// sends the input of the user. simulator/plugins/web_page describes the messages.
'use strict';

const element = (id) => document.getElementById(id);
const stage = element('stage');
const canvas = element('phone');
const context = canvas.getContext('2d');
const keyboard = element('keyboard');
const ring = element('ring');
const tree = element('elements');
const composer = element('composer');
const composerToggle = element('toggle');

const protocol = 'brim-phone';
const maxRetryDelay = 4000;
const maxTextLength = 8000;
// In milliseconds. A restart of the phone takes less time, so the status is not shown during a restart.
const statusDelay = 1200;

let socket = null;
let retryDelay = 500;
let statusTimer = null;
let ringFrame = null;

function send(message) {
  if (socket !== null && socket.readyState === WebSocket.OPEN) socket.send(JSON.stringify(message));
}

// The connection

function showStatus(title, text) {
  const status = element('status');
  status.hidden = title === '';
  status.querySelector('strong').textContent = title;
  status.querySelector('span').textContent = text;
  document.body.classList.toggle('ended', title !== '');
}

function showEnd() {
  showStatus('The phone has ended.',
             'Start it again with ./brim run --browser. This page then connects again, or open the printed address.');
}

function connect() {
  const address = new URL('connection', location.href);
  address.protocol = 'ws:';
  const connection = new WebSocket(address, protocol);
  let shown = Promise.resolve();
  connection.binaryType = 'arraybuffer';
  connection.addEventListener('open', () => {
    socket = connection;
    retryDelay = 500;
    clearTimeout(statusTimer);
    statusTimer = null;
    showStatus('', '');
    finger = null;
    ringFrame = null;
    showRing();
    clearElements();
    reportSize();
    send({do: 'describe'});
  });
  // A frame is decompressed asynchronously, and the next message must wait for it.
  connection.addEventListener('message', (event) => {
    shown = shown.then(() => show(event.data)).then(() => {
      if (connection.readyState === WebSocket.OPEN) connection.send('{"do":"acknowledge"}');
    });
    shown = shown.catch(() => connection.close());
  });
  connection.addEventListener('close', () => {
    socket = null;
    statusTimer ??= setTimeout(showEnd, statusDelay);
    setTimeout(connect, retryDelay);
    retryDelay = Math.min(2 * retryDelay, maxRetryDelay);
  });
}

async function show(data) {
  if (typeof data !== 'string') return showFrame(data);
  const message = JSON.parse(data);
  if ('device' in message) {
    document.title = `Brim – ${message.device}`;
    tree.setAttribute('aria-label', message.device);
  }
  if ('ring' in message) {
    ringFrame = message.ring;
    showRing();
  }
  if ('elements' in message) showElements(message.elements);
  if ('error' in message) element('error').textContent = message.error;
}

// The picture

async function showFrame(data) {
  const header = new DataView(data);
  const integer = (index) => header.getInt32(4 * index, true);
  const count = integer(2);
  const headerSize = 4 * (3 + 4 * count);
  const stream = new Blob([new Uint8Array(data, headerSize)]).stream();
  const pixels = await new Response(stream.pipeThrough(new DecompressionStream('deflate'))).arrayBuffer();
  if (canvas.width !== integer(0) || canvas.height !== integer(1)) {
    canvas.width = integer(0);
    canvas.height = integer(1);
    placeCanvas();
  }
  let start = 0;
  for (let index = 0; index < count; ++index) {
    const [x, y, width, height] = [3, 4, 5, 6].map((offset) => integer(4 * index + offset));
    const size = 4 * width * height;
    context.putImageData(new ImageData(new Uint8ClampedArray(pixels, start, size), width, height), x, y);
    start += size;
  }
}

// One pixel of the picture is one pixel of the display. Browsers can round positions to CSS pixels, which consist of
// whole device pixels only if the density is an integer.
function placeCanvas() {
  const density = window.devicePixelRatio;
  const step = Number.isInteger(density) ? 1 : density;
  const place = (space, side) => Math.round((space - side / density) / 2 * step) / step;
  canvas.style.width = `${canvas.width / density}px`;
  canvas.style.height = `${canvas.height / density}px`;
  canvas.style.left = `${place(stage.clientWidth, canvas.width)}px`;
  canvas.style.top = `${place(stage.clientHeight, canvas.height)}px`;
  for (const side of ['left', 'top', 'width', 'height']) tree.style[side] = canvas.style[side];
  placeElements();
  showRing();
}

function showRing() {
  ring.hidden = ringFrame === null;
  if (ringFrame === null) return;
  const distance = 5;
  const [x, y, width, height] = ringFrame;
  ring.style.left = `${canvas.offsetLeft + x * canvas.clientWidth - distance}px`;
  ring.style.top = `${canvas.offsetTop + y * canvas.clientHeight - distance}px`;
  ring.style.width = `${width * canvas.clientWidth + 2 * distance}px`;
  ring.style.height = `${height * canvas.clientHeight + 2 * distance}px`;
}

// The controls of the phone for assistive technologies

const roles = {
  button: 'button',
  icon: 'button',
  key: 'button',
  textfield: 'textbox',
  listitem: 'listitem',
  list: 'list',
  group: 'group',
  keyboard: 'group',
  notification: 'group',
};

// The shown elements by their identifiers: {node, item}. Null before the first list of a connection.
let shownElements = null;

function clearElements() {
  shownElements = null;
  tree.replaceChildren();
  keyboard.removeAttribute('aria-activedescendant');
}

function setAttribute(node, name, value) {
  if (value === null) node.removeAttribute(name);
  else if (node.getAttribute(name) !== value) node.setAttribute(name, value);
}

function setText(node, text) {
  if (node.textContent !== text) node.textContent = text;
}

function makeNode(item) {
  const node = document.createElement('div');
  node.id = `element-${item.id}`;
  if (item.role === 'text') return node;
  setAttribute(node, 'role', roles[item.role] ?? 'group');
  if (item.role === 'notification') setAttribute(node, 'aria-roledescription', 'notification');
  if (item.actions.length === 0) return node;
  node.tabIndex = -1;
  node.addEventListener('click', (event) => {
    event.stopPropagation();
    send({do: 'act', element: item.id, action: 0});
  });
  node.addEventListener('focus', () => send({do: 'focus', element: item.id}));
  // ARIA has no further actions of an element, so they are buttons.
  item.actions.slice(1).forEach((name, index) => {
    const button = document.createElement('div');
    button.dataset.action = name;
    setAttribute(button, 'role', 'button');
    setAttribute(button, 'aria-label', `${name}: ${item.label}`);
    button.addEventListener('click', (event) => {
      event.stopPropagation();
      send({do: 'act', element: item.id, action: index + 1});
    });
    node.append(button);
  });
  return node;
}

function updateNode(node, item) {
  if (item.role === 'text') return setText(node, item.label);
  setAttribute(node, 'aria-label', item.label);
  setAttribute(node, 'aria-disabled', item.enabled ? null : 'true');
  if (item.role === 'textfield') setText(node, item.value);
}

// Moves nodes only if the order differs, because a moved node loses the focus.
function arrange(parent, nodes) {
  let next = [...parent.children].find((child) => !('action' in child.dataset)) ?? null;
  for (const node of nodes) {
    if (node === next) next = next.nextElementSibling;
    else parent.insertBefore(node, next);
  }
}

function announce(text) {
  const announcement = element('announcement');
  announcement.textContent = '';
  setTimeout(() => { announcement.textContent = text; }, 50);
}

function showElements(items) {
  const before = shownElements ?? new Map();
  const after = new Map();
  const children = new Map([[tree, []]]);
  for (const item of items) {
    const known = before.get(item.id);
    const isSame = known !== undefined && known.item.role === item.role &&
        JSON.stringify(known.item.actions) === JSON.stringify(item.actions);
    const node = isSame ? known.node : makeNode(item);
    if (known !== undefined && !isSame) known.node.remove();
    if (item.role === 'notification' && known === undefined && shownElements !== null) announce(item.label);
    updateNode(node, item);
    after.set(item.id, {node, item});
    children.set(node, []);
    const parent = item.parent === null ? tree : after.get(items[item.parent].id).node;
    children.get(parent).push(node);
  }
  for (const [id, {node}] of before) {
    if (!after.has(id)) node.remove();
  }
  for (const [parent, nodes] of children) arrange(parent, nodes);
  shownElements = after;
  const focused = items.find((item) => item.focused);
  setAttribute(keyboard, 'aria-activedescendant', focused === undefined ? null : `element-${focused.id}`);
  placeElements();
}

function placeElements() {
  if (shownElements === null) return;
  const items = [...shownElements.values()];
  for (const {node, item} of items) {
    const [x, y, width, height] = item.frame;
    const [left, top] = item.parent === null ? [0, 0] : items[item.parent].item.frame;
    node.style.left = `${(x - left) * canvas.clientWidth}px`;
    node.style.top = `${(y - top) * canvas.clientHeight}px`;
    node.style.width = `${width * canvas.clientWidth}px`;
    node.style.height = `${height * canvas.clientHeight}px`;
  }
}

function reportSize() {
  const pixels = (side) => Math.min(16384, Math.max(1, Math.floor(side * window.devicePixelRatio)));
  placeCanvas();
  send({do: 'show', width: pixels(stage.clientWidth), height: pixels(stage.clientHeight)});
}

// The density changes when the user zooms, or moves the window to another display.
function observeDensity() {
  const query = matchMedia(`(resolution: ${window.devicePixelRatio}dppx)`);
  query.addEventListener('change', () => {
    reportSize();
    observeDensity();
  }, {once: true});
}

// The finger

let finger = null;

function touch(phase, event) {
  const bounds = canvas.getBoundingClientRect();
  const x = (event.clientX - bounds.left) / bounds.width;
  const y = (event.clientY - bounds.top) / bounds.height;
  send({do: 'touch', phase, x, y});
}

canvas.addEventListener('pointerdown', (event) => {
  if (event.button !== 0 || finger !== null) return;
  event.preventDefault();
  // On a touch screen, focusing the field would open the computer's on-screen keyboard.
  if (event.pointerType !== 'touch') keyboard.focus({preventScroll: true});
  finger = event.pointerId;
  canvas.setPointerCapture(finger);
  touch('began', event);
});

canvas.addEventListener('pointermove', (event) => {
  if (event.pointerId === finger) touch('moved', event);
});

for (const [name, phase] of [['pointerup', 'ended'], ['pointercancel', 'cancelled']]) {
  canvas.addEventListener(name, (event) => {
    if (event.pointerId !== finger) return;
    finger = null;
    touch(phase, event);
  });
}

document.addEventListener('visibilitychange', () => {
  if (!document.hidden || finger === null) return;
  finger = null;
  send({do: 'touch', phase: 'cancelled', x: 0, y: 0});
});

canvas.addEventListener('contextmenu', (event) => event.preventDefault());

// The keyboard

const keys = {
  Enter: 'return',
  Backspace: 'backspace',
  Escape: 'escape',
  Tab: 'next',
  ArrowUp: 'up',
  ArrowDown: 'down',
  ArrowLeft: 'left',
  ArrowRight: 'right',
  PageUp: 'volumeup',
  PageDown: 'volumedown',
  AudioVolumeUp: 'volumeup',
  AudioVolumeDown: 'volumedown',
};

const editingKeys = {
  insertLineBreak: 'return',
  insertParagraph: 'return',
  deleteContentBackward: 'backspace',
};

function press(name) {
  send({do: 'key', name});
}

function type(text) {
  const characters = Array.from(text);
  for (let start = 0; start < characters.length; start += maxTextLength)
    send({do: 'type', text: characters.slice(start, start + maxTextLength).join('')});
}

function keyName(event) {
  if (event.key === 'Tab' && event.shiftKey) return 'previous';
  if (event.key === ' ' && ringFrame !== null) return 'space';
  return Object.hasOwn(keys, event.key) ? keys[event.key] : undefined;
}

document.addEventListener('keydown', (event) => {
  if (event.key === 'F9') {
    event.preventDefault();
    toggleComposer('focus');
    return;
  }
  if (composer.contains(document.activeElement)) {
    if (event.key === 'Escape') keyboard.focus({preventScroll: true});
    return;
  }
  keyboard.focus({preventScroll: true});
  // The input method handles the key.
  if (event.isComposing || event.keyCode === 229) return;
  if (event.ctrlKey || event.altKey || event.metaKey) return;
  const name = keyName(event);
  if (name === undefined) return;
  event.preventDefault();
  press(name);
});

keyboard.addEventListener('beforeinput', (event) => {
  if (event.isComposing || event.inputType === 'insertCompositionText') return;
  event.preventDefault();
  if (Object.hasOwn(editingKeys, event.inputType)) press(editingKeys[event.inputType]);
  else if (event.data) type(event.data);
});

keyboard.addEventListener('paste', (event) => {
  event.preventDefault();
  type(event.clipboardData.getData('text/plain'));
});

keyboard.addEventListener('compositionstart', () => keyboard.classList.add('composing'));

keyboard.addEventListener('compositionend', (event) => {
  keyboard.classList.remove('composing');
  type(event.data);
  // Some browsers insert the text after this event.
  setTimeout(() => { keyboard.value = ''; });
});

// The composer

let presets = [];

function addOption(menu, value, name) {
  const option = document.createElement('option');
  option.value = value;
  option.textContent = name;
  menu.append(option);
}

function fillComposer() {
  const preset = presets[element('preset').selectedIndex];
  for (const field of ['application', 'title', 'subtitle', 'text', 'actions', 'picture'])
    element(field).value = preset[field];
  element('persistent').checked = preset.persistent;
}

async function loadComposer() {
  const data = await (await fetch('composer.json')).json();
  presets = data.presets;
  presets.forEach((preset, index) => addOption(element('preset'), index, preset.name));
  data.applications.forEach(({identifier, name}) => addOption(element('application'), identifier, name));
  fillComposer();
}

async function toggleComposer(focus) {
  composer.hidden = !composer.hidden;
  composerToggle.setAttribute('aria-expanded', String(!composer.hidden));
  if (composer.hidden) {
    keyboard.focus({preventScroll: true});
    return;
  }
  if (presets.length === 0) {
    await loadComposer().catch(() => { element('error').textContent = 'The phone has not sent the presets.'; });
  }
  if (focus === 'focus') element('preset').focus();
}

composerToggle.addEventListener('click', () => toggleComposer('keep'));
element('preset').addEventListener('change', fillComposer);
element('play').addEventListener('click', () => send({do: 'play', preset: element('preset').selectedIndex}));

composer.querySelector('form').addEventListener('submit', (event) => {
  event.preventDefault();
  const message = {do: 'send', preset: element('preset').selectedIndex, persistent: element('persistent').checked};
  for (const field of ['application', 'title', 'subtitle', 'text', 'actions', 'picture'])
    message[field] = element(field).value;
  send(message);
});

// The start

new ResizeObserver(reportSize).observe(stage);
observeDensity();
keyboard.focus({preventScroll: true});
connect();
