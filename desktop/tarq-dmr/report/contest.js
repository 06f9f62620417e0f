"use strict";
// How one item was chosen, as elements of the page. What items contain comes from servers: it only ever becomes text.

const pointCauses = ["format", "position", "original", "size", "nearest"];

const states = {
  plays: "plays",
  depends: "depends on the server",
  refused: "does not play",
};

function stateOf(item) {
  return item.code === 0 ? "plays" : item.code === null ? "depends" : "refused";
}

// The content: strings, which become text, and elements.
function make(name, className, ...content) {
  const element = document.createElement(name);
  if (className) element.className = className;
  element.append(...content.filter((part) => part !== undefined && part !== null));
  return element;
}

function drawing(className, height) {
  const svg = document.createElementNS("http://www.w3.org/2000/svg", "svg");
  svg.setAttribute("class", className);
  svg.setAttribute("width", "100%");
  svg.setAttribute("height", height);
  svg.setAttribute("aria-hidden", "true");
  return svg;
}

// From `begin` to `end`, in [0, 1] of the width.
function addBar(svg, className, begin, end) {
  const bar = document.createElementNS("http://www.w3.org/2000/svg", "rect");
  bar.setAttribute("class", className);
  bar.setAttribute("x", `${100 * begin}%`);
  bar.setAttribute("width", `${100 * (end - begin)}%`);
  bar.setAttribute("height", "100%");
  svg.append(bar);
}

function stateBadge(item) {
  const state = stateOf(item);
  return make("span", `state ${state}`, states[state]);
}

const sum = (numbers) => numbers.reduce((all, number) => all + number, 0);
const above = (points) => sum(points.filter((number) => number > 0));
const below = (points) => sum(points.filter((number) => number < 0));

// Points above 0 go to the right of a line, those below to the left.
function pointBars(points, least, most) {
  const svg = drawing("points", 14);
  const width = most - least || 1;
  let right = -least;
  let left = -least;
  points.forEach((number, cause) => {
    if (number > 0) addBar(svg, `cause-${pointCauses[cause]}`, right / width, (right += number) / width);
    if (number < 0) addBar(svg, `cause-${pointCauses[cause]}`, (left + number) / width, left / width);
    left += Math.min(number, 0);
  });
  return svg;
}

function pointWords(points) {
  const named = points.map((number, cause) => `${pointCauses[cause]} ${number}`);
  return named.filter((words, cause) => points[cause] !== 0).join(", ") || "no points";
}

function candidateRow(res, item, least, most) {
  const won = res.index === item.winner;
  const name = make("th", null, `res ${res.index}`, won ? make("span", "won", "chosen") : null);
  name.scope = "row";
  const row = make("tr", won ? "winner" : null, name, make("td", "about", res.about));
  if (res.out !== undefined) {
    row.append(make("td", "out", `out: ${res.out}`), make("td", "number", ""));
  } else if (res.points === undefined) {
    row.append(make("td", null, res.played), make("td", "number", ""));
  } else {
    const words = `${res.format ? `${res.format}, ` : ""}${res.rule}: ${pointWords(res.points)}`;
    row.append(
      make("td", "bar", pointBars(res.points, least, most), make("span", "words", words)),
      make("td", "number", String(sum(res.points)), res.secondary ? make("span", "words", "secondary") : null));
  }
  return row;
}

function legend(scored) {
  const used = pointCauses.filter((name, cause) => scored.some((res) => res.points[cause] !== 0));
  const keys = used.map((name) => {
    const key = drawing("key", 12);
    key.setAttribute("width", 12);
    addBar(key, `cause-${name}`, 0, 1);
    return make("li", null, key, name);
  });
  return used.length ? make("ul", "legend", ...keys) : null;
}

function candidates(item) {
  const scored = item.res.filter((res) => res.points !== undefined);
  const least = Math.min(0, ...scored.map((res) => below(res.points)));
  const most = Math.max(0, ...scored.map((res) => above(res.points)));
  const head = make("tr", null, ...["Element", "What it is", "Points by cause", "Total"].map((words) => {
    const cell = make("th", null, words);
    cell.scope = "col";
    return cell;
  }));
  const rows = item.res.map((res) => candidateRow(res, item, least, most));
  return [legend(scored), make("table", "contest", make("thead", null, head), make("tbody", null, ...rows))];
}

// What there is to say of an item beside its row of a list.
function contestView(item) {
  const view = make("div", "item", make("p", "verdict", stateBadge(item), `: ${item.why}`), make("p", "uri", item.uri));
  if (item.contest) view.append(make("p", null, `The ${item.contest} contest: ${item.reason}.`));
  if (item.res.length) view.append(...candidates(item).filter(Boolean));
  if (item.more) view.append(make("p", null, `${item.more} more res elements are not shown here.`));
  return view;
}
