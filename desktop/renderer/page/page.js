// What the renderer plays and what it was asked for, fetched again and again while somebody looks.

const pauseMs = 1500;
const mostRequests = 50;
const byId = (id) => document.getElementById(id);
const rows = new Map(); // of the requests that are shown, by id
let newest = 0;
let shownChoice = "";
let waiting = 0;

const transportWords = {
  NO_MEDIA_PRESENT: "nothing to play",
  STOPPED: "stopped",
  TRANSITIONING: "starting",
  PLAYING: "playing",
  PAUSED_PLAYBACK: "paused",
};

// "1:02:03"
function clock(ms) {
  const seconds = Math.floor(ms / 1000);
  const two = (number) => String(number).padStart(2, "0");
  const minutes = Math.floor(seconds / 60);
  return minutes < 60 ? `${minutes}:${two(seconds % 60)}` : `${Math.floor(minutes / 60)}:${two(minutes % 60)}:${two(seconds % 60)}`;
}

function fact(name, value) {
  return make("div", null, make("dt", null, name), make("dd", null, value));
}

// The choice is made without asking the server; the check did ask it.
function checkedItem({ item, check }) {
  return { ...item, code: check.code, why: check.code === 0 ? item.why : check.message };
}

function showNow(now) {
  const title = now.choice?.item.title ?? now.uri ?? "Nothing to play";
  if (byId("title").textContent !== title) byId("title").textContent = title;
  const facts = [fact("State", transportWords[now.state] + (now.failed ? ", failed" : ""))];
  if (now.uri !== null) {
    const length = now.durationMs > 0 ? ` of ${clock(now.durationMs)}` : "";
    facts.push(fact("Position", `${clock(now.positionMs)}${length}`));
    facts.push(fact("Played as", now.format ?? now.mimeType ?? "unknown"));
  }
  facts.push(fact("Volume", now.mute ? `${now.volume}, muted` : String(now.volume)));
  byId("facts").replaceChildren(...facts);
  const bar = drawing("chart position", 6);
  if (now.durationMs > 0) addBar(bar, "done", 0, Math.min(1, now.positionMs / now.durationMs));
  byId("progress").replaceChildren(...(now.durationMs > 0 ? [bar] : []));
  const choice = now.choice ? JSON.stringify(now.choice) : "";
  if (choice === shownChoice) return;
  shownChoice = choice;
  byId("choice").replaceChildren(...(now.choice ? [contestView(checkedItem(now.choice))] : []));
}

function toggle(row, button, request) {
  const open = button.getAttribute("aria-expanded") === "true";
  button.setAttribute("aria-expanded", String(!open));
  if (open) return row.nextElementSibling.remove();
  const cell = make("td", null, contestView(checkedItem(request.choice)));
  cell.colSpan = 4;
  row.after(make("tr", "opened", cell));
}

function requestName(row, request) {
  if (!request.choice) return request.action;
  const button = make("button", "open", request.action);
  button.type = "button";
  button.setAttribute("aria-expanded", "false");
  button.addEventListener("click", () => toggle(row, button, request));
  const { item } = request.choice;
  return make("div", null, button, make("span", "words", item.title ?? item.uri));
}

function requestRow(request) {
  const row = make("tr", null);
  const times = request.times > 1 ? make("span", "words", `${request.times} times`) : null;
  const result = request.error === 0 ? make("span", "state plays", "done")
    : make("span", "state refused", `${request.error} ${request.message}`);
  const took = request.microseconds > 0 ? make("span", "words", `${(request.microseconds / 1000).toFixed(1)} ms`) : null;
  row.append(
    make("td", null, requestName(row, request), times),
    make("td", null, result, took),
    make("td", null, request.address, make("span", "words wide", request.agent)),
    make("td", null, new Date(request.time).toLocaleTimeString()));
  return row;
}

function removeRow(id) {
  const row = rows.get(id);
  rows.delete(id);
  if (row.nextElementSibling?.className === "opened") row.nextElementSibling.remove();
  row.remove();
}

// The newest comes first. A question that is asked again stays where it is.
function addRequest(request) {
  const row = requestRow(request);
  const earlier = rows.get(request.id);
  if (earlier) earlier.replaceWith(row);
  else byId("requests").tBodies[0].prepend(row);
  rows.set(request.id, row);
  newest = Math.max(newest, request.number);
  if (rows.size > mostRequests) removeRow(rows.keys().next().value);
}

function setStatus(words) {
  if (byId("status").textContent !== words) byId("status").textContent = words;
}

async function update() {
  clearTimeout(waiting);
  if (document.hidden) return;
  try {
    const answer = await fetch(`/page/now?after=${newest}`, { cache: "no-store" });
    if (!answer.ok) throw new Error(`the renderer answers ${answer.status}`);
    const { name, now, requests } = await answer.json();
    byId("name").textContent = document.title = name;
    showNow(now);
    requests.forEach(addRequest);
    setStatus("A media renderer, live");
  } catch (error) {
    setStatus(`Not connected: ${error.message}`);
  }
  waiting = setTimeout(update, pauseMs);
}

document.addEventListener("visibilitychange", update);
update();
