// What the keys and buttons of the page do. Without it, the page shows the current version, and its links work.
'use strict';

(() => {
  const root = document.documentElement;
  const score = document.querySelector('.score');
  const links = Array.from(document.querySelectorAll('.list a'));
  const zoomOutput = document.querySelector('output');
  const announcement = document.querySelector('[role="status"]');
  const printed = document.querySelector('.printed');
  const hasBefore = document.querySelector('[data-action="before"]') !== null;

  const zoomFactor = 1.25;
  const leastZoom = 1 / zoomFactor ** 5;
  const greatestZoom = zoomFactor ** 8;
  let zoom = 1;
  let view = 'after';
  let place = -1;

  function setView(wanted) {
    view = wanted;
    root.classList.toggle('both', view === 'both');
    for (const sheet of document.querySelectorAll('.sheet')) {
      setVersion(sheet, view === 'both' ? 'after' : view);
      setCopy(sheet, view === 'both');
    }
    for (const name of ['before', 'after', 'both']) press(name, view === name);
    printed.textContent = `${printed.dataset.title}: ${view === 'before' ? 'before' : 'after'}`;
    announce({ before: 'Before', after: 'After', both: 'Before and after' }[view]);
  }

  function setVersion(sheet, version) {
    const shown = sheet.querySelector('.version:not(.copy)');
    shown.dataset.version = version;
    shown.querySelector('figcaption').textContent = version === 'before' ? 'Before' : 'After';
  }

  // The copy is of the version before, and comes first. It has identifiers of its own, and links lead to the original.
  function setCopy(sheet, isWanted) {
    sheet.querySelector('.copy')?.remove();
    if (!isWanted) return;
    const original = sheet.querySelector('.version');
    const { id } = original.querySelector('svg');
    const copy = original.cloneNode(false);
    copy.innerHTML = original.innerHTML.replaceAll(id, `${id}-before`);
    copy.classList.add('copy');
    copy.dataset.version = 'before';
    copy.querySelector('figcaption').textContent = 'Before';
    copy.querySelector('.here')?.remove();
    for (const anchor of copy.querySelectorAll('g[data-class="staff"][id]')) anchor.removeAttribute('id');
    sheet.prepend(copy);
  }

  function toggleVersion() {
    setView(view === 'after' ? 'before' : 'after');
  }

  function toggleBoth() {
    setView(view === 'both' ? 'after' : 'both');
  }

  function toggleMarks() {
    const areHidden = root.classList.toggle('without-marks');
    press('marks', !areHidden);
    announce(areHidden ? 'Without marks' : 'With marks');
  }

  // What is in the middle stays there.
  function setZoom(wanted) {
    const scale = Math.min(Math.max(wanted, leastZoom), greatestZoom) / zoom;
    const across = (score.scrollLeft + score.clientWidth / 2) * scale - score.clientWidth / 2;
    const down = (score.scrollTop + score.clientHeight / 2) * scale - score.clientHeight / 2;
    zoom *= scale;
    root.style.setProperty('--zoom', zoom);
    score.scrollTo(across, down);
    zoomOutput.textContent = `${Math.round(zoom * 100)}%`;
  }

  function step(by) {
    if (links.length === 0) return;
    const from = place < 0 && by < 0 ? 0 : place;
    links[(from + by + links.length) % links.length].click();
  }

  // A place in the map whose lines were hidden before, too, is not in the list.
  function showPlace(hash) {
    const target = document.getElementById(hash.slice(1));
    if (target === null) return;
    const link = links.find((other) => other.hash === hash);
    if (link !== undefined) showInList(link);
    frame(target);
    bringToMiddle(target);
  }

  function showInList(link) {
    place = links.indexOf(link);
    for (const other of links) other.removeAttribute('aria-current');
    link.setAttribute('aria-current', 'true');
    link.scrollIntoView({ block: 'nearest' });
    announce(`${link.parentElement.textContent.trim()} (${place + 1} of ${links.length})`);
  }

  // Browsers differ in where they scroll to for a part of a picture.
  function bringToMiddle(target) {
    const place = target.getBoundingClientRect();
    const room = score.getBoundingClientRect();
    score.scrollBy(centre(place.left, place.right) - centre(room.left, room.right), 0);
    const scrolls = score.scrollHeight > score.clientHeight;
    const [top, bottom] = scrolls ? [room.top, room.bottom] : [0, window.innerHeight];
    (scrolls ? score : window).scrollBy(0, centre(place.top, place.bottom) - centre(top, bottom));
  }

  function centre(start, end) {
    return (start + end) / 2;
  }

  function frame(target) {
    document.querySelector('.here')?.remove();
    const { x, y, width, height } = target.getBBox();
    const rectangle = document.createElementNS('http://www.w3.org/2000/svg', 'rect');
    const edge = 90;
    rectangle.setAttribute('class', 'here');
    rectangle.setAttribute('x', x - edge);
    rectangle.setAttribute('y', y - edge);
    rectangle.setAttribute('width', width + 2 * edge);
    rectangle.setAttribute('height', height + 2 * edge);
    target.append(rectangle);
  }

  function press(name, isPressed) {
    document.querySelector(`[data-action="${name}"]`)?.setAttribute('aria-pressed', String(isPressed));
  }

  function announce(text) {
    announcement.textContent = text;
  }

  const ofTwo = {
    before: () => setView('before'),
    after: () => setView('after'),
    both: toggleBoth,
    marks: toggleMarks,
  };
  const actions = {
    larger: () => setZoom(zoom * zoomFactor),
    smaller: () => setZoom(zoom / zoomFactor),
    usual: () => setZoom(1),
    next: () => step(1),
    previous: () => step(-1),
    ...(hasBefore ? ofTwo : {}),
  };
  const keys = {
    '+': actions.larger,
    '=': actions.larger,
    '-': actions.smaller,
    0: actions.usual,
    n: actions.next,
    p: actions.previous,
    ...(hasBefore ? { b: toggleVersion, 2: toggleBoth, m: toggleMarks } : {}),
  };

  document.addEventListener('click', (event) => {
    const button = event.target.closest('[data-action]');
    if (button !== null) return actions[button.dataset.action]();
    const anchor = event.target.closest('.map a, .list a');
    if (anchor === null) return;
    const hash = anchor.getAttribute('href');
    event.preventDefault();
    history.replaceState(null, '', hash);
    showPlace(hash);
  });

  document.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    const action = keys[event.key.toLowerCase()];
    if (action === undefined) return;
    event.preventDefault();
    action();
  });

  root.classList.add('scripted');
  score.focus({ preventScroll: true, focusVisible: false });
  showPlace(location.hash);
})();
