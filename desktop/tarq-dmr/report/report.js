// The list of items: searched, filtered, sorted, and shown page by page.

const rowsPerPage = 50;
const byId = (id) => document.getElementById(id);
const items = JSON.parse(byId("items").textContent);
byId("items").remove();
items.forEach((item, index) => {
  item.index = index;
  item.state = stateOf(item);
  item.searched = [item.title, item.uri, item.format, item.why].join("\n").toLowerCase();
});

const severalRegions = new Set(items.map((item) => item.region)).size > 1;
const text = new Intl.Collator(undefined, { numeric: true });
const number = new Intl.NumberFormat("en");
const columns = [
  { key: "title", name: "Title", show: (item) => item.title ?? item.uri },
  { key: "kind", name: "Kind", className: "wide", show: (item) => item.kind },
  { key: "format", name: "Format", show: (item) => item.format ?? "" },
  { key: "region", name: "Region", className: "region", hidden: !severalRegions, show: (item) => String(item.region) },
  { key: "state", name: "Result", show: (item) => stateBadge(item) },
  { key: "why", name: "Why", className: "wide why", show: (item) => item.why },
].filter((column) => !column.hidden);
const filters = ["state", "kind", "format", "region"];

let shown = items;
let sorting = { column: null, descending: false };
let page = 0;

function matching() {
  const words = byId("search").value.toLowerCase().split(/\s+/).filter(Boolean);
  const wanted = filters.map((key) => [key, byId(key).value]).filter(([, value]) => value !== "");
  return items.filter((item) =>
    wanted.every(([key, value]) => String(item[key] ?? "none") === value) &&
    words.every((word) => item.searched.includes(word)));
}

// Each value is looked at once: a comparison of texts costs more than all the rest.
function sorted(list) {
  const { column, descending } = sorting;
  if (!column) return list;
  const values = [...new Set(list.map((item) => String(item[column.key] ?? "")))].sort(text.compare);
  const ranks = new Map(values.map((value, rank) => [value, descending ? -rank : rank]));
  const rank = (item) => ranks.get(String(item[column.key] ?? ""));
  return list.slice().sort((a, b) => rank(a) - rank(b) || a.index - b.index);
}

function toggle(row, button, item) {
  const open = button.getAttribute("aria-expanded") === "true";
  button.setAttribute("aria-expanded", String(!open));
  if (open) return row.nextElementSibling.remove();
  const cell = make("td", null, contestView(item));
  cell.colSpan = columns.length;
  row.after(make("tr", "opened", cell));
}

function itemRow(item) {
  const row = make("tr", null);
  for (const column of columns) {
    const content = column.show(item);
    if (column.key !== "title") {
      row.append(make("td", column.className, content));
      continue;
    }
    const button = make("button", "open", content);
    button.type = "button";
    button.setAttribute("aria-expanded", "false");
    button.addEventListener("click", () => toggle(row, button, item));
    row.append(make("td", null, button));
  }
  return row;
}

function showPage() {
  const begin = page * rowsPerPage;
  const end = Math.min(begin + rowsPerPage, shown.length);
  byId("table").tBodies[0].replaceChildren(...shown.slice(begin, end).map(itemRow));
  const range = shown.length ? `${number.format(begin + 1)} to ${number.format(end)} of ` : "";
  const all = shown.length === items.length ? "" : `, ${number.format(items.length)} in all`;
  byId("count").textContent = `${range}${number.format(shown.length)} items${all}`;
  byId("previous").disabled = page === 0;
  byId("next").disabled = end >= shown.length;
}

function update() {
  shown = sorted(matching());
  page = 0;
  showPage();
}

function turnTo(newPage) {
  page = newPage;
  showPage();
  byId("pager").scrollIntoView();
}

// First upwards, then downwards, then as they came.
function sortBy(column) {
  const again = sorting.column === column;
  sorting = again && sorting.descending ? { column: null } : { column, descending: again };
  for (const head of byId("table").tHead.rows[0].cells) {
    const own = sorting.column && head.dataset.key === sorting.column.key;
    head.setAttribute("aria-sort", own ? (sorting.descending ? "descending" : "ascending") : "none");
  }
  update();
}

function addHeads() {
  for (const column of columns) {
    const button = make("button", "sort", column.name);
    button.type = "button";
    button.addEventListener("click", () => sortBy(column));
    const head = make("th", column.className, button);
    head.scope = "col";
    head.dataset.key = column.key;
    head.setAttribute("aria-sort", "none");
    byId("table").tHead.rows[0].append(head);
  }
}

function addOptions() {
  for (const key of filters) {
    const select = byId(key);
    const values = [...new Set(items.map((item) => String(item[key] ?? "none")))].sort(text.compare);
    select.append(...values.map((value) => new Option(key === "state" ? states[value] : value, value)));
    select.parentElement.hidden = values.length < 2;
    select.addEventListener("change", update);
  }
}

addHeads();
addOptions();
byId("search").addEventListener("input", update);
byId("filters").addEventListener("submit", (event) => event.preventDefault());
byId("previous").addEventListener("click", () => turnTo(page - 1));
byId("next").addEventListener("click", () => turnTo(page + 1));
showPage();
if (items.length === 1) {
  byId("items-heading").textContent = "The choice";
  byId("table").after(contestView(items[0]));
} else {
  for (const id of ["filters", "pager", "table"]) byId(id).hidden = false;
}
